#include "repora/core/statement.h"

namespace {

repora::RuntimeClass const kStatementClass("REPStatement", nullptr, nullptr);

}  // namespace

repora::RuntimeClass const* REPStatement::GetThisClass() {
  return &kStatementClass;
}

repora::RuntimeClass const* REPStatement::GetRuntimeClass() const {
  return &kStatementClass;
}

REPProcess_e REPStatement::Process(REPProcessor* /*processor*/) const {
  return REPProcessUnsupported;
}

REPParseTree::REPParseTree() = default;

REPParseTree::~REPParseTree() {
  RemoveContents();
}

void REPParseTree::AddHead(REPStatement* statement) {
  statements_.AddHead(statement);
}

void REPParseTree::AddTail(REPStatement* statement) {
  statements_.AddTail(statement);
}

int REPParseTree::GetCount() const {
  return statements_.GetCount();
}

REPStatement* REPParseTree::GetStatement(int index) const {
  return statements_.At(index);
}

void REPParseTree::RemoveContents() {
  while (auto* const statement = statements_.RemoveTail()) delete statement;
}
