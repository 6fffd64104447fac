#pragma once

#include <string_view>

// Headers of triggers in the macros of the code generator, which expands them; the body of a
// trigger follows.
namespace repora {

// Of a trigger on a table or view.
inline constexpr std::string_view kTableTriggerTemplate =
    "CREATE %CreateOrReplace TRIGGER %ProcedureOwner(.)%TriggerName\r\n"
    " %Fire %Actions(\" OR \")\r\n"
    " ON %TableName\r\n"
    " %RefClause\r\n"
    " %Scope\r\n"
    " %TriggerWhen\r\n";

// Of a trigger on the database.
inline constexpr std::string_view kDatabaseTriggerTemplate =
    "CREATE %CreateOrReplace TRIGGER %ProcedureOwner(.)%TriggerName\r\n"
    " %Fire %DDLEvent(\" OR \") %if(%And(%DDLEvent(),%DatabaseEvent())) {OR} "
    "%DatabaseEvent(\" OR \")\r\n"
    " ON DATABASE\r\n"
    " %TriggerWhen\r\n";

}  // namespace repora
