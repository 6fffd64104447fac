#pragma once

// The choices of a table that have no keyword of their own in core/keywords.h. Value 0 is "not
// given"; any other value can be stored, and one outside the list means nothing.

enum class REPTableType_e : int { None, Relational, Object, XmlType };
enum class REPCommit_e : int { None, DeleteRows, PreserveRows };  // ON COMMIT of a temporary table
enum class REPMapping_e : int { None, MappingTable, NoMapping };
enum class REPRowDepend_e : int { None, NoRowDependencies, RowDependencies };
enum class REPRowMovement_e : int { None, Disable, Enable };
enum class REPMonitor_e : int { None, On, Off };
// Whether an object column may hold subtypes, and whether that holds for all levels by FORCE.
enum class REPSubstitutable_e : int {
  None,
  Substitutable,
  NotSubstitutable,
  SubstitutableForce,
  NotSubstitutableForce
};
