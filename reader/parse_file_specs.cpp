#include "reader/parse_file_specs.h"

#include <vector>

#include "reader/parse_storage.h"

namespace repora::reader {
namespace {

bool IsFileName(TokenStream const& in) {
  auto const& token = in.Peek();
  auto const text = in.TextOf(token);
  if (token.kind == TokenKind::Word) return text.find('&') != std::string_view::npos;
  return token.kind == TokenKind::String && text.front() == '\'';
}

std::vector<std::unique_ptr<REPFileSpec>> ParseFileSpecs(TokenStream& in) {
  std::vector<std::unique_ptr<REPFileSpec>> files;
  bool const enclosed = in.Accept('(');
  do files.push_back(ParseFileSpec(in));
  while (in.Accept(','));
  if (enclosed && !in.Accept(')')) in.Fail("',' or ')'");
  return files;
}

}  // namespace

std::string ParseFileName(TokenStream& in) {
  if (!IsFileName(in)) in.Fail("a file name in quotes");
  auto const& token = in.Next();
  auto text = in.TextOf(token);
  if (token.kind == TokenKind::String) text = text.substr(1, text.size() - 2);
  return std::string(text);
}

REPAutoExtendClause ParseAutoExtend(TokenStream& in) {
  REPAutoExtendClause autoextend;
  in.Expect(K_AUTOEXTEND);
  autoextend.SetClausePresent(true);
  if (in.Accept(K_OFF)) {
    autoextend.SetOff(true);
    return autoextend;
  }
  if (!in.Accept(K_ON)) in.Fail("ON or OFF");
  autoextend.SetOn(true);
  for (;;) {
    if (in.Accept(K_NEXT))
      autoextend.SetSizeClause(ParseSize(in));
    else if (in.Accept(K_MAXSIZE))
      autoextend.SetMaxSizeClause(ParseSize(in));
    else
      return autoextend;
  }
}

std::unique_ptr<REPFileSpec> ParseFileSpec(TokenStream& in) {
  auto file = std::make_unique<REPFileSpec>();
  if (in.Accept('(')) {
    std::vector<std::string> names;
    do names.push_back(ParseFileName(in));
    while (in.Accept(','));
    in.Expect(')');
    for (auto name = names.rbegin(); name != names.rend(); ++name) file->SetFilename(name->c_str());
  } else if (IsFileName(in)) {
    file->SetFilename(ParseFileName(in).c_str());
  } else if (in.Peek().kind == TokenKind::QuotedName ||
             (in.Peek().kind == TokenKind::Word && in.Peek().word == K_NONE)) {
    in.Fail("a file name in quotes");
  }
  for (;;) {
    if (in.Accept(K_SIZE))
      file->SetSizeClause(ParseSize(in));
    else if (in.Accept(K_REUSE))
      file->SetReuse(true);
    else if (in.Is(K_AUTOEXTEND))
      file->SetAutoExtendClause(ParseAutoExtend(in));
    else
      return file;
  }
}

std::unique_ptr<REPFileSpecList> ParseFileSpecList(TokenStream& in) {
  auto list = std::make_unique<REPFileSpecList>();
  for (auto& file : ParseFileSpecs(in)) list->AddTail(file.release());
  return list;
}

std::unique_ptr<REPDataFileClause> ParseDataFiles(TokenStream& in) {
  auto clause = std::make_unique<REPDataFileClause>();
  auto files = ParseFileSpecs(in);
  for (auto file = files.rbegin(); file != files.rend(); ++file)
    clause->AddFileSpec(file->release());
  return clause;
}

REPExtentMgmtClause ParseExtentManagement(TokenStream& in) {
  REPExtentMgmtClause extents;
  in.Expect(K_EXTENT, K_MANAGEMENT);
  if (in.Accept(K_DICTIONARY)) {
    extents.SetExtent(REPExtent_e::Dictionary);
  } else if (in.Accept(K_LOCAL, K_AUTOALLOCATE)) {
    extents.SetExtent(REPExtent_e::LocalAutoAllocate);
  } else if (in.Accept(K_LOCAL, K_UNIFORM)) {
    extents.SetExtent(REPExtent_e::LocalUniform);
    if (in.Accept(K_SIZE)) extents.SetSize(ParseSize(in));
  } else if (in.Accept(K_LOCAL)) {
    extents.SetExtent(REPExtent_e::Local);
  } else {
    in.Fail("DICTIONARY or LOCAL");
  }
  return extents;
}

}  // namespace repora::reader
