#pragma once

#include <memory>

#include "reader/token_stream.h"
#include "repora/database/disk_groups.h"

namespace repora::reader {

// [FAILGROUP name] DISK disk [, disk]... of CREATE DISKGROUP and of ALTER DISKGROUP ... ADD
std::unique_ptr<REPFailgroup> ParseFailgroup(TokenStream& in);

// Whether a failure group or its disks come.
bool IsFailgroup(TokenStream const& in);

// [QUORUM | REGULAR] before DISK or FAILGROUP, which is skipped.
void SkipQuorum(TokenStream& in);

// FORCE | NOFORCE; None when none comes.
REPForce_e ParseForce(TokenStream& in);

}  // namespace repora::reader
