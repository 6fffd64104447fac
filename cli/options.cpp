#include "cli/options.h"

#include <iostream>

#include <CLI/CLI.hpp>

#include "cli/exit_status.h"
#include "repora/core/letters.h"

namespace repora::cli {
namespace {

template <class Value>
using Choices = std::vector<std::pair<std::string, Value>>;

Choices<eREPLogical> const kLogicalCases = {{"as-is", eREPLogicalAsIs},
                                            {"lower", eREPLogicalLower},
                                            {"upper", eREPLogicalUpper},
                                            {"mixed", eREPLogicalMixed}};
Choices<eREPPhysical> const kPhysicalCases = {
    {"as-is", eREPPhysicalAsIs}, {"lower", eREPPhysicalLower}, {"upper", eREPPhysicalUpper}};
Choices<std::int32_t> const kModelTypes = {{"logical", codes::kModelLogical},
                                           {"physical", codes::kModelPhysical},
                                           {"both", codes::kModelLogicalAndPhysical}};
Choices<ColorMode> const kColorModes = {
    {"auto", ColorMode::Auto}, {"always", ColorMode::Always}, {"never", ColorMode::Never}};
Choices<bool> const kProgressModes = {{"auto", true}, {"never", false}};

// An option that takes one of a few words.
template <class Value>
void AddChoice(CLI::App& app, std::string const& name, Value& value, Choices<Value> const& choices,
               std::string const& description) {
  std::string words;
  for (auto const& [word, meaning] : choices) words += (words.empty() ? "" : "|") + word;
  app.add_option_function<std::string>(
         name,
         [&value, &choices, name, words](std::string const& given) {
           for (auto const& [word, meaning] : choices) {
             if (word != given) continue;
             value = meaning;
             return;
           }
           throw CLI::ValidationError(name, "'" + given + "' is none of " + words);
         },
         description)
      ->type_name(words);
}

void Define(std::map<std::string, std::string>& defines, std::string const& definition) {
  auto const equals = definition.find('=');
  if (equals == 0 || equals == std::string::npos)
    throw CLI::ValidationError("--define", "'" + definition + "' is not of the form NAME=VALUE");
  defines[ToUpper(std::string_view(definition).substr(0, equals))] = definition.substr(equals + 1);
}

void AddCommonOptions(CLI::App& app, Options& options) {
  app.add_option("SCRIPT", options.scripts, "Scripts to read; - is standard input")
      ->required()
      ->type_name("");
  app.add_option_function<std::vector<std::string>>(
         "--define",
         [&options](std::vector<std::string> const& definitions) {
           for (auto const& definition : definitions) Define(options.defines, definition);
         },
         "Value of a substitution variable; may be repeated")
      ->allow_extra_args(false)
      ->type_name("NAME=VALUE");
  app.add_option("--allow-include", options.include_folders,
                 "Let scripts include files of that folder too; may be repeated")
      ->check(CLI::ExistingDirectory)
      ->allow_extra_args(false)
      ->type_name("DIR");
  app.add_flag("--strict", options.strict,
               "Count warnings, duplicates and notes as failures in the exit status");
  app.add_flag("--redact", options.redact,
               "Show **** for the passwords of users, roles and database links in all output");
  AddChoice(app, "--color", options.color, kColorModes, "Colour messages and report");
  AddChoice(app, "--progress", options.progress, kProgressModes,
            "Show a progress bar on a terminal");
}

void AddImport(CLI::App& program, Options& options) {
  auto& app = *program.add_subcommand("import", "Read scripts, build the model and report");
  AddCommonOptions(app, options);
  app.add_option("--json", options.json, "Write the model and the messages as JSON")
      ->type_name("FILE|-");
  app.add_option("--summary", options.summary, "Write the action summary of the run as text")
      ->type_name("FILE");
  app.add_flag("--ignore-duplicate-views", options.settings.ignore_duplicate_views,
               "Define views that exist already anew");
  AddChoice(app, "--logical-case", options.settings.logical_case, kLogicalCases,
            "How logical names are made; mixed: ORDER_ITEM becomes Order Item");
  AddChoice(app, "--physical-case", options.settings.physical_case, kPhysicalCases,
            "How physical names are made");
  AddChoice(app, "--model-type", options.settings.model_type, kModelTypes,
            "Names the model holds (both, if not given)");
  app.add_flag("--ledger", options.ledger,
               "Print what became of the clauses: held by the model, kept as text, rendered only "
               "or left");
  app.add_flag("--quiet", options.quiet, "Do not print the closing report");
  app.callback([&options] { options.command = Command::Import; });
}

void AddRender(CLI::App& program, Options& options) {
  auto& app = *program.add_subcommand(
      "render", "Print every statement as the library renders it, each followed by a / line");
  AddCommonOptions(app, options);
  app.add_flag("--quiet", options.quiet, "Accepted for symmetry; rendering prints no report");
  app.callback([&options] { options.command = Command::Render; });
}

}  // namespace

std::optional<Options> ParseOptions(int argc, char const* const* argv, int& exit_status) {
  Options options;
  CLI::App app("Turns Oracle DDL scripts into a data model.", "repora");
  app.set_version_flag("--version", "repora " REPORA_VERSION);
  app.require_subcommand(1);
  app.failure_message([](CLI::App const* failed, CLI::Error const& error) {
    bool const no_command = failed->get_parent() == nullptr && failed->get_subcommands().empty() &&
                            dynamic_cast<CLI::RequiredError const*>(&error);
    std::string const problem =
        no_command ? "the first word must be import or render" : error.what();
    return "repora: " + problem + "; see repora --help\n";
  });
  AddImport(app, options);
  AddRender(app, options);
  app.footer(
      "Examples:\n"
      "  repora import schema.sql\n"
      "  repora import --json model.json tables.sql views.sql\n"
      "  repora render - < schema.sql\n\n"
      "Exit status: 0 all statements done (there may be warnings), 1 a statement failed, was\n"
      "unsupported or could not be read, 2 wrong usage or trouble with a file, 130 interrupted.");
  try {
    app.parse(argc, argv);
  } catch (CLI::ParseError const& error) {
    exit_status = app.exit(error, std::cout, std::cerr) == 0 ? kExitDone : kExitTrouble;
    return std::nullopt;
  }
  return options;
}

}  // namespace repora::cli
