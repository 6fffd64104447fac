#pragma once

#include <string>

class MOXActionSummaryItem;
class REPDatatype;
class REPExpr;
class REPProcessor;

// What a column of CREATE TABLE and one of ALTER TABLE write on their attribute alike.
namespace repora {

// The datatype properties. What the datatype does not say (time zone, length semantics, domain)
// stays as the attribute has it.
void WriteDatatype(REPProcessor& processor, MOXActionSummaryItem& attribute,
                   REPDatatype const& datatype);

// Makes a default object of the expression's text and points the attribute's default usage at it.
// The usage is the one given or, for null, the attribute's unnamed one, which is added when it is
// not there yet. A default that cannot be made is left out.
void WriteDefault(REPProcessor& processor, MOXActionSummaryItem const& attribute,
                  REPExpr const& expression, MOXActionSummaryItem* usage = nullptr);

// The datatype as SQL, empty for null.
std::string DatatypeText(REPDatatype const* datatype);

}  // namespace repora
