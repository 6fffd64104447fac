#pragma once

#include <string>

#include "repora/core/statement.h"

namespace repora {

// Keeps a statement for which the model has no type of object: a script template of that name
// under the root, whose code is the statement's text, generated before the schema. Duplicate when
// there is one of the name.
REPProcess_e AddPreScript(REPProcessor& processor, std::string const& name,
                          REPStatement const& statement);

}  // namespace repora
