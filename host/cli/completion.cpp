#include "host/cli/completion.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "host/cli/command_table.h"
#include "host/cli/shell_words.h"
#include "host/format/visible_text.h"
#include "platform/ascii.h"
#include "scenario/text_file.h"

namespace host {
namespace {

using Words = std::vector<std::string>;

Words ClassNames(const Repository& repository, const char* suffix = "") {
  Words names;
  for (const ClassInfo* info : repository.served()) names.push_back(info->name() + suffix);
  return names;
}

Words PropertyNames(const ClassInfo* info, const char* suffix = "", const char* flag = nullptr) {
  Words names;
  if (info == nullptr) return names;
  for (const PropertyDeclaration& property : info->declaration.properties) {
    if (flag == nullptr || property.qualifiers.Flag(flag)) names.push_back(property.name + suffix);
  }
  return names;
}

Words Options(const CommandRow& row) {
  Words names;
  for (const auto& rows : {row.options, OutputOptions()}) {
    for (const OptionRow& option : rows) names.emplace_back(option.name);
  }
  return names;
}

const OptionRow* FindOption(const CommandRow& row, const std::string& name) {
  for (const auto* rows : {&row.options, &OutputOptions()}) {
    for (const OptionRow& option : *rows) {
      if (option.name == name) return &option;
    }
  }
  return nullptr;
}

/// The part of a line before the word at the cursor.
struct Line {
  const CommandRow* row = nullptr;
  Words arguments;
  const OptionRow* open = nullptr;  ///< an option whose value is the word at the cursor
};

Line ReadLine(const std::vector<ShellWord>& words) {
  Line line;
  line.row = FindCommand(words.front().text);
  if (line.row == nullptr) return line;
  for (std::size_t index = 1; index < words.size(); ++index) {
    const std::string& text = words[index].text;
    if (line.open != nullptr) {
      line.open = nullptr;
    } else if (!text.starts_with("--")) {
      line.arguments.push_back(text);
    } else {
      const OptionRow* option = FindOption(*line.row, text);
      if (option != nullptr && option->takes != Takes::kNothing) line.open = option;
    }
  }
  return line;
}

/// Completions of an assignment: names with "=", or a boolean's two values.
Words Assignments(const Line& line, const Repository& repository, const std::string& word) {
  const std::string path = line.arguments.empty() ? "" : line.arguments[0];
  const ClassInfo* info = repository.FindClass(ClassNameOfPath(path));
  if (info == nullptr) return {};
  const char* flag = "write";
  if (line.row->arguments.size() == 3) {  // PATH METHOD NAME=VALUE
    const MethodInfo* method =
        line.arguments.size() < 2 ? nullptr : info->FindMethod(line.arguments[1]);
    info = method == nullptr ? nullptr : method->in.get();
    flag = nullptr;
  }
  const std::size_t equals = word.find('=');
  if (info == nullptr || equals == std::string::npos) return PropertyNames(info, "=", flag);
  const std::string name = word.substr(0, equals);
  const auto property = info->FindProperty(name);
  if (!property || info->declaration.properties[*property].type != CIM_BOOLEAN) return {};
  return {name + "=true", name + "=false"};
}

/// Completions in a query, by the keyword before them.
Words QueryWords(const std::string& query, const Repository& repository) {
  const std::vector<ShellWord> words = CutShellLine(query);
  const ClassInfo* info = nullptr;
  for (std::size_t index = 0; index + 1 < words.size(); ++index) {
    if (SameIgnoringAsciiCase(words[index].text, "FROM")) {
      info = repository.FindClass(words[index + 1].text);
    }
  }
  const bool within = !query.empty() && query.back() != ' ';
  const std::size_t last = words.size() - (within ? 1 : 0);
  const std::string previous = last == 0 ? "" : words[last - 1].text;
  if (SameIgnoringAsciiCase(previous, "FROM")) return ClassNames(repository);
  if (SameIgnoringAsciiCase(previous, "SELECT")) return {"*"};
  Words all = PropertyNames(info);
  for (const char* word :
       {"SELECT", "FROM", "WHERE", "AND", "OR", "NOT", "LIKE", "IS", "NULL", "TRUE", "FALSE"}) {
    all.emplace_back(word);
  }
  return all;
}

/// The files and folders that complete a name. Names with blanks or quotes are left out, because
/// they would be several words.
Words Files(const std::string& word) {
  const std::size_t slash = word.rfind('/');
  const std::string folder = slash == std::string::npos ? "" : word.substr(0, slash + 1);
  Words names;
  std::error_code error;
  for (const auto& entry : std::filesystem::directory_iterator(
           simulator::FilePath(folder.empty() ? "." : folder), error)) {
    const std::u8string file = entry.path().filename().u8string();
    const std::string name(file.begin(), file.end());
    if (name.starts_with('.') || name.find_first_of(" \t\"'") != std::string::npos) continue;
    std::error_code unknown;
    names.push_back(folder + name + (entry.is_directory(unknown) ? "/" : ""));
  }
  return names;
}

Words Candidates(const std::string& before, const std::vector<ShellWord>& words,
                 const std::string& word, const Repository& repository, const PathSource& paths,
                 const MemberSource& members) {
  if (words.empty()) {
    Words names = CommandNames(true);
    names.emplace_back("SELECT");
    return names;
  }
  const Line line = ReadLine(words);
  if (line.row == nullptr) return QueryWords(before, repository);
  const std::string first = line.arguments.empty() ? "" : line.arguments[0];
  const ClassInfo* info = repository.FindClass(ClassNameOfPath(first));
  Takes takes = Takes::kNothing;
  Words choices;
  if (line.open != nullptr) {
    takes = line.open->takes;
    choices.assign(line.open->choices.begin(), line.open->choices.end());
  } else if (word.starts_with("--")) {
    return Options(*line.row);
  } else if (!line.row->arguments.empty()) {
    const std::size_t place = std::min(line.arguments.size(), line.row->arguments.size() - 1);
    const ArgumentRow& argument = line.row->arguments[place];
    if (place < line.arguments.size() && argument.count != ArgumentRow::Count::kAny) return {};
    takes = argument.takes;
    choices.assign(argument.choices.begin(), argument.choices.end());
  }
  switch (takes) {
    case Takes::kClass:
      return ClassNames(repository);
    case Takes::kPath:
      return word.find('.') == std::string::npos ? ClassNames(repository, ".")
                                                 : paths(ClassNameOfPath(word));
    case Takes::kMethod: {
      Words names;
      if (info == nullptr) return names;
      for (const MethodInfo& method : info->methods) names.push_back(method.declaration.name);
      return names;
    }
    case Takes::kAssignment:
      return Assignments(line, repository, word);
    case Takes::kProperties: {
      // In a list the text before the last comma is kept.
      const std::size_t comma = word.rfind(',');
      const std::string kept = comma == std::string::npos ? "" : word.substr(0, comma + 1);
      Words names = PropertyNames(info);
      for (std::string& name : names) name.insert(0, kept);
      return names;
    }
    case Takes::kQuery:
      return QueryWords(word, repository);
    case Takes::kCommand:
      return CommandNames(true);
    case Takes::kMember:
      return members(word);
    case Takes::kFile:
      return Files(word);
    case Takes::kChoice:
      return choices;
    default:
      return {};
  }
}

}  // namespace

os::LineEditor::Completion CompleteLine(const std::string& before, const Repository& repository,
                                        const PathSource& paths, const MemberSource& members) {
  std::vector<ShellWord> words = CutShellLine(before);
  const bool within = !words.empty() && (words.back().openQuote != 0 ||
                                         (before.back() != ' ' && before.back() != '\t'));
  const ShellWord word = within ? words.back() : ShellWord{"", before.size(), 0};
  if (within) words.pop_back();
  os::LineEditor::Completion completion;
  if (word.openQuote != 0 && !words.empty()) {
    // Within the quotes of a query the words of the query are completed.
    const CommandRow* row = FindCommand(words.front().text);
    if (row != nullptr && !row->arguments.empty() &&
        row->arguments.front().takes == Takes::kQuery) {
      const std::size_t inner = word.start + 1;
      completion = CompleteLine(before.substr(inner), repository, paths, members);
      completion.start += inner;
      return completion;
    }
  }
  completion.start = word.start;
  const std::string typed = before.substr(word.start);
  for (std::string& candidate : Candidates(before, words, typed, repository, paths, members)) {
    const bool fits =
        candidate.size() >= typed.size() && VisibleText(candidate) == candidate &&
        SameIgnoringAsciiCase(std::string_view(candidate).substr(0, typed.size()), typed);
    if (fits) completion.words.push_back(std::move(candidate));
  }
  std::ranges::sort(completion.words);
  return completion;
}

}  // namespace host
