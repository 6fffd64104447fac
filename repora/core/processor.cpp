#include "repora/core/processor.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <stdexcept>
#include <thread>
#include <utility>

#include "repora/core/messages.h"
#include "repora/core/name.h"
#include "repora/core/processor_state.h"
#include "repora/model/chunk_memory.h"
#include "repora/model/codes.h"

namespace {

constexpr auto kPausePoll = std::chrono::milliseconds(250);
constexpr std::size_t kErrorTextLimit = 32000;  // characters of a failed statement in its message

int ReadInteger(MOXObject const& object, MOXId property, int otherwise) {
  QELValue value;
  return object.GetProperty(property, value, false) == eSuccess ? value.Integer() : otherwise;
}

std::string ReadText(MOXObject const& object, MOXId property) {
  QELValue value;
  if (object.GetProperty(property, value, false) != eSuccess || !QELValue::HasValue(value))
    return {};
  return value.AsString(true);
}

}  // namespace

repora::RuntimeClass const REPProcessor::classREPProcessor("REPProcessor", nullptr,
                                                           &REPProcessor::CreateObject);
repora::RuntimeClass const REPOracleProcessor::classREPOracleProcessor(
    "REPOracleProcessor", &REPProcessor::classREPProcessor, &REPOracleProcessor::CreateObject);

repora::RuntimeObject* REPProcessor::CreateObject() {
  return new REPProcessor;
}

repora::RuntimeObject* REPOracleProcessor::CreateObject() {
  return new REPOracleProcessor;
}

// What a run holds between loading the model and applying the summary.
struct REPProcessor::Run {
  explicit Run(MOXModelSetI* model_set) : id_map(model_set) {}
  MOXObject root;
  MOXBuilderIdMap id_map;
};

REPProcessor::REPProcessor() : state_(std::make_unique<State>()) {}

REPProcessor::~REPProcessor() {
  for (auto* const statement : state_->statements) delete statement;
  if (state_->summary) state_->summary->RemoveReference();
}

void REPProcessor::SetNotifyWnd(REPNotifyWnd* window) {
  state_->notify_wnd = window;
}

void REPProcessor::SetModelSet(MOXModelSetI* model_set) {
  state_->model_set = model_set;
}

void REPProcessor::SetLogicalCase(eREPLogical rule) {
  state_->logical_case = rule;
}

void REPProcessor::SetPhysicalCase(eREPPhysical rule) {
  state_->physical_case = rule;
}

void REPProcessor::SetSummaryFilename(char const* name) {
  state_->summary_file_name = name ? name : "";
}

void REPProcessor::SetIgnoreDuplicateViews(bool ignore) {
  state_->ignore_duplicate_views = ignore;
}

void REPProcessor::SetAdvisoryTree(void* tree) {
  state_->advisory_tree = tree;
}

void REPProcessor::SetStatementType(REPStatement_e type) {
  state_->statement_type = type;
}

void REPProcessor::AddStatement(REPStatement* statement) {
  if (statement) state_->statements.push_back(statement);
}

void REPProcessor::SetStatementSource(REPStatementSource* source) {
  state_->source = source;
}

int REPProcessor::GetCount() const {
  return static_cast<int>(state_->statements.size());
}

std::uint32_t REPProcessor::GetRoot() const {
  return state_->root;
}

bool REPProcessor::GetIgnoreDuplicateViews() const {
  return state_->ignore_duplicate_views;
}

REPStatement_e REPProcessor::GetStatementType() const {
  return state_->statement_type;
}

MOXModelSetI* REPProcessor::GetModelSet() const {
  return state_->model_set;
}

int REPProcessor::GetModelType() const {
  if (state_->model_type != 0) return state_->model_type;
  auto* const model = state_->model_set ? state_->model_set->GetModel() : nullptr;
  if (!model) return repora::codes::kModelLogicalAndPhysical;
  MOXObject root;
  model->GetRootObject(root);
  return ReadInteger(root, ORVTypes::pType, repora::codes::kModelLogicalAndPhysical);
}

void REPProcessor::Pause() {
  state_->pause = true;
}

void REPProcessor::Resume() {
  state_->pause = false;
}

void REPProcessor::Stop() {
  state_->stop = true;
}

bool REPProcessor::Process() {
  if (!state_->model_set || !state_->model_set->GetModel()) return false;
  repora::ChunkMemory::Scope const side_by_side;
  Run run(state_->model_set);
  LoadModel(run);
  NotifyWindow(eRENotifyBegin, GetCount());
  bool const complete = RunStatements();
  WriteSummaryFile();
  if (complete) ApplySummary(run);
  EndRun();
  return complete;
}

void REPProcessor::LoadModel(Run& run) {
  auto& state = *state_;
  auto* const model = state.model_set->GetModel();
  model->GetRootObject(run.root);
  state.root = state.next_id = run.root.Id();
  run.id_map.AddMapping(state.root, state.root);
  state.summary = new MOXActionSummary;
  MOXObjectIterator objects;
  model->CreateIterator(objects);
  while (++objects) {
    MOXObject object;
    objects.GetValue(object);
    LoadObject(object);
    run.id_map.AddMapping(object.Id(), object.Id());
    state.next_id = std::max(state.next_id + 1, object.Id());
  }
  ++state.next_id;
  state.target_server = ReadInteger(run.root, ORVTypes::pTargetServer, state.target_server);
  state.dbms_version = ReadInteger(run.root, ORVTypes::pDBMSVersion, state.dbms_version);
  state.dbms_minor_version =
      ReadInteger(run.root, ORVTypes::pDBMSMinorVersion, state.dbms_minor_version);
  state.model_type = GetModelType();
}

void REPProcessor::LoadObject(MOXObject const& object) {
  auto& state = *state_;
  auto text = ReadText(object, MOXTypes::pName);
  auto* const item = MOXActionSummaryItem::Make();
  item->SetName(text);  // for messages and children; the properties stay with the object
  if (TypeUsesShortName(object.Type()) && TypeUsesDBOwner(object.Type())) {
    if (auto const owner = ReadText(object, ORVTypes::pDBOwner); !owner.empty())
      text = owner + "." + text;
  }
  REPName const name(text.c_str());
  item->SetId(object.Id());
  item->SetType(object.Type());
  item->SetOwner(object.Owner().Id());
  state.registry.Put({item->Owner(), item->Type(), state.names.Add(repora::MapFullName(&name))},
                     item);
  state.summary->AddItem(MOXActionSummary::eExisting, item);
  item->RemoveReference();
}

// Waits while the run is paused. False when it is to stop: a stop request takes effect once the
// pause is over.
bool REPProcessor::WaitForTurn() {
  while (state_->pause) std::this_thread::sleep_for(kPausePoll);
  return !state_->stop;
}

bool REPProcessor::RunStatements() {
  int done = 0;
  bool const complete = RunAddedStatements(done) && RunStatementsOfSource(done);
  state_->source = nullptr;
  for (auto* const statement : state_->statements) delete statement;
  state_->statements.clear();
  state_->registry.Clear();
  state_->placeholders.Clear();
  return complete;
}

bool REPProcessor::RunAddedStatements(int& done) {
  auto& statements = state_->statements;
  auto const count = statements.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (!WaitForTurn()) return false;
    if (i >= statements.size()) throw std::invalid_argument("statements changed during the run");
    std::unique_ptr<REPStatement> const statement(std::exchange(statements[i], nullptr));
    RunStatement(*statement, ++done);
  }
  return true;
}

bool REPProcessor::RunStatementsOfSource(int& done) {
  auto* const source = state_->source;
  if (!source) return true;
  auto const take_back = [source](REPStatement* statement) { source->TakeBack(statement); };
  for (;;) {
    std::unique_ptr<REPStatement, decltype(take_back)> const statement(source->Next(), take_back);
    // A source that is stopped itself may end early: what it gave is not to be applied then.
    if (!WaitForTurn()) return false;
    if (!statement) return true;
    RunStatement(*statement, ++done);
  }
}

void REPProcessor::RunStatement(REPStatement const& statement, int number) {
  state_->statement_type = statement.GetStatementType();
  auto const result = statement.Process(this);
  NotifyWindow(eRENotifyProgress, number);
  ReportResult(result, statement);
}

void REPStatementSource::TakeBack(REPStatement* statement) {
  delete statement;
}

void REPProcessor::ReportResult(REPProcess_e result, REPStatement const& statement) {
  auto const report = [&](eRENotify kind, char const* code, REPMessage message,
                          std::string const& text) {
    NotifyWindow(kind, 0, code,
                 repora::FormatMessage(message, {text.c_str(), nullptr, nullptr, nullptr}).c_str());
  };
  if (result == REPProcessDuplicate)
    report(eRENotifyDuplicate, "REP-1", REPMessage::DuplicateObject, statement.AsString());
  if (result == REPProcessUnsupported)
    report(eRENotifyUnsupported, "REP-2", REPMessage::UnsupportedStatement, statement.AsString());
  if (result == REPProcessError)
    report(eRENotifySemantic, "--------->", REPMessage::StatementError,
           statement.AsString().substr(0, kErrorTextLimit));
}

void REPProcessor::WriteSummaryFile() {
  if (state_->summary_file_name.empty()) return;
  auto* const file = std::fopen(state_->summary_file_name.c_str(), "wb");
  if (!file) return;
  state_->summary->Dump(file, state_->model_set, std::string());
  std::fclose(file);
}

void REPProcessor::ApplySummary(Run& run) {
  auto* const model_set = state_->model_set;
  auto const builder = MOX::BuilderFactory().CreateBuilder(model_set, MOX::BuilderOptions{}, 0);
  auto const validator = IVOUtilityPack::CreateBuilderValidator(model_set);
  auto* const channel = model_set->GetAdvisoryChannel();
  std::vector<MOXAdvisory> advisories;
  if (builder) {
    builder->SetValidator(validator.get());
    builder->SetIdMap(&run.id_map);
    builder->SetCallback(this);
  }
  if (channel) {
    channel->Subscribe(this);
    channel->GetAdvisories(advisories);
  }
  auto const before = advisories.size();
  UZTUnificationPack::SetModelUnderConstruction(run.root, true);
  if (builder) builder->Build(state_->summary, 0, "ReverseEngineer");
  UZTUnificationPack::ClearModelUnderConstruction(run.root);
  if (channel) {
    channel->Unsubscribe(this);
    advisories.clear();
    channel->GetAdvisories(advisories);
  }
  if (advisories.size() != before) NotifyWindow(eRENotifyAdvisories, 0);
}

void REPProcessor::EndRun() {
  auto& state = *state_;
  state.summary->RemoveReference();
  state.summary = nullptr;
  state.summary_index.Clear();
  state.model_type = 0;
  state.uses_physical_name.fill({});
  state.datatype_names.Clear();
  state.datatypes.clear();
}

bool REPProcessor::Advise(MOXBuilderCallbackI::Events_e event, unsigned long first,
                          unsigned long second) {
  if (event == MOXBuilderCallbackI::eProgress) {
    NotifyWindow(eRENotifyBuildTotal, static_cast<int>(second));
    NotifyWindow(eRENotifyBuildPosition, static_cast<int>(first));
  }
  return true;
}

void REPProcessor::Notify(MOXPublishedEventI const& /*event*/) {}
