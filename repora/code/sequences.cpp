#include "repora/code/sequences.h"

#include "repora/core/processor.h"
#include "repora/core/properties.h"
#include "repora/core/sql_text.h"

using repora::SqlText;

namespace {

void SetOrderAndCycle(MOXActionSummaryItem& sequence, REPOrder_e order, REPCycle_e cycle) {
  if (order == REPOrder_e::NoOrder) repora::SetBoolean(sequence, ORVTypes::pOrderOn, false);
  if (order == REPOrder_e::Order) repora::SetBoolean(sequence, ORVTypes::pOrderOn, true);
  if (cycle == REPCycle_e::NoCycle) repora::SetBoolean(sequence, ORVTypes::pCycleOn, false);
  if (cycle == REPCycle_e::Cycle) repora::SetBoolean(sequence, ORVTypes::pCycleOn, true);
}

// " NOMAXVALUE" or " MAXVALUE n".
void AppendOptional(SqlText& sql, REPOptional_e option, char const* off, char const* on,
                    repora::Text const& value) {
  if (option == REPOptional_e::Off) sql.Append(off);
  if (option == REPOptional_e::Value) sql.Append(on).Append(value);
}

}  // namespace

REPProcess_e REPCreateSequence::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  MOXActionSummaryItem* sequence = nullptr;
  if (auto const result =
          processor->AddItem(processor->GetRoot(), ORVTypes::oSequence, name_.Get(), sequence);
      result != REPProcessOK)
    return result;
  repora::SetOwnerOf(*sequence, name_.Get());
  repora::AddTextIfGiven(*sequence, ORVTypes::pInitial, start_);
  repora::AddTextIfGiven(*sequence, ORVTypes::pIncrement, increment_);
  if (cache_option_ == REPOptional_e::Off) repora::AddBoolean(*sequence, ORVTypes::pCacheOn, false);
  if (cache_option_ == REPOptional_e::Value)
    repora::AddText(*sequence, ORVTypes::pCacheVal, cache_);
  if (min_option_ == REPOptional_e::Off) repora::AddBoolean(*sequence, ORVTypes::pMinOn, false);
  if (min_option_ == REPOptional_e::Value) repora::AddText(*sequence, ORVTypes::pMinVal, min_);
  if (max_option_ == REPOptional_e::Off) repora::AddBoolean(*sequence, ORVTypes::pMaxOn, false);
  if (max_option_ == REPOptional_e::Value) repora::AddText(*sequence, ORVTypes::pMaxVal, max_);
  SetOrderAndCycle(*sequence, order_, cycle_);
  return REPProcessOK;
}

std::string REPCreateSequence::AsString() const {
  SqlText sql("CREATE SEQUENCE ");
  sql.Name(name_.Get()).Clause(" INCREMENT BY ", increment_).Clause(" START WITH ", start_);
  AppendOptional(sql, max_option_, " NOMAXVALUE", " MAXVALUE ", max_);
  AppendOptional(sql, min_option_, " NOMINVALUE", " MINVALUE ", min_);
  sql.Option(repora::Keyword(cycle_));
  AppendOptional(sql, cache_option_, " NOCACHE", " Cache ", cache_);
  return sql.Option(repora::Keyword(order_)).Append(";").Take();
}

REPProcess_e REPAlterSequence::Process(REPProcessor* processor) const {
  if (!processor) return REPProcessError;
  auto* const sequence =
      processor->FindItemPtr(processor->GetRoot(), ORVTypes::oSequence, name_.Get());
  if (!sequence) {
    processor->DisplayWarning(REPMessage::AlterTargetMissing,
                              processor->GetObjectDisplayString(ORVTypes::oSequence),
                              repora::AsWritten(name_.Get()));
    return REPProcessError;
  }
  repora::SetOwnerOf(*sequence, name_.Get());
  repora::SetTextIfGiven(*sequence, ORVTypes::pIncrement, increment_);
  if (max_option_ == REPOptional_e::Off) repora::SetBoolean(*sequence, ORVTypes::pMaxOn, false);
  if (max_option_ == REPOptional_e::Value) repora::SetText(*sequence, ORVTypes::pMaxVal, max_);
  if (min_option_ == REPOptional_e::Off) repora::SetBoolean(*sequence, ORVTypes::pMinOn, false);
  if (min_option_ == REPOptional_e::Value) repora::SetText(*sequence, ORVTypes::pMinVal, min_);
  if (cache_option_ == REPCache_e::NoCache)
    repora::SetBoolean(*sequence, ORVTypes::pCacheOn, false);
  if (cache_option_ == REPCache_e::Cache) repora::SetText(*sequence, ORVTypes::pCacheVal, cache_);
  SetOrderAndCycle(*sequence, order_, cycle_);
  return REPProcessOK;
}

std::string REPAlterSequence::AsString() const {
  SqlText sql("ALTER SEQUENCE ");
  sql.Name(name_.Get()).Clause(" INCREMENT BY ", increment_);
  AppendOptional(sql, max_option_, " NOMAXVALUE", " MAXVALUE ", max_);
  AppendOptional(sql, min_option_, " NOMINVALUE", " MINVALUE ", min_);
  sql.Option(repora::Keyword(cycle_)).Option(repora::Keyword(cache_option_));
  if (cache_option_ == REPCache_e::Cache) sql.Append(" ").Append(cache_);
  return sql.Option(repora::Keyword(order_)).Append(";").Take();
}
