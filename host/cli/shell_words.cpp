#include "host/cli/shell_words.h"

#include <algorithm>

#include "host/cli/command_table.h"
#include "host/mof/schema.h"

namespace host {
namespace {

constexpr std::string_view kBlanks = " \t\r";

/// Whether a word with this beginning is an object path: CLASS.KEY= or \\.\root\cimv2:.
bool IsPath(std::string_view begin) {
  const std::size_t mark = begin.find_first_of(".:");
  return mark != std::string_view::npos && mark > 0 && begin.back() == '=' &&
         begin.find_first_of("/-") != 0;
}

bool TakesPath(const ShellWord& command) {
  const CommandRow* row = FindCommand(command.text);
  return row != nullptr && !row->arguments.empty() && row->arguments.front().takes == Takes::kPath;
}

/// Whether an unquoted query begins with this word.
bool BeginsQuery(std::string_view line, const ShellWord& word) {
  constexpr std::string_view kVerbs[] = {"SELECT", "ASSOCIATORS", "REFERENCES"};
  return std::ranges::any_of(kVerbs, [&](std::string_view verb) {
    return SameIgnoringAsciiCase(word.text, verb) &&
           SameIgnoringAsciiCase(line.substr(word.start, verb.size()), verb);
  });
}

/// Reads the quoted text that begins at `*next`, and moves `*next` past it.
void ReadQuoted(std::string_view line, bool keep, std::size_t* next, ShellWord* word) {
  const char quote = line[*next];
  if (keep) word->text += quote;
  for (++*next; *next < line.size() && line[*next] != quote; ++*next) {
    const bool escapes = quote == '"' && line[*next] == '\\' && *next + 1 < line.size() &&
                         (line[*next + 1] == '"' || line[*next + 1] == '\\');
    if (escapes && keep) word->text += '\\';
    if (escapes) ++*next;
    word->text += line[*next];
  }
  if (*next == line.size()) {
    word->openQuote = quote;
    return;
  }
  if (keep) word->text += quote;
  ++*next;
}

}  // namespace

std::vector<ShellWord> CutShellLine(std::string_view line) {
  std::vector<ShellWord> words;
  std::size_t next = 0;
  while ((next = line.find_first_not_of(kBlanks, next)) != std::string_view::npos) {
    ShellWord word;
    word.start = next;
    bool path = false;
    while (next < line.size() && kBlanks.find(line[next]) == std::string_view::npos) {
      if (line[next] != '"' && line[next] != '\'') {
        word.text += line[next++];
        continue;
      }
      path = path || (!word.text.empty() &&
                      (IsPath(word.text) || (words.size() == 1 && TakesPath(words.front()))));
      ReadQuoted(line, path, &next, &word);
    }
    words.push_back(std::move(word));
  }
  return words;
}

std::vector<std::string> SplitShellLine(std::string_view line) {
  const std::vector<ShellWord> words = CutShellLine(line);
  std::vector<std::string> texts;
  // A leading "query" changes nothing.
  const std::size_t first =
      words.size() > 1 && SameIgnoringAsciiCase(words[0].text, "query") ? 1 : 0;
  if (words.size() > first && BeginsQuery(line, words[first])) {
    std::size_t option = first;
    while (option < words.size() && !words[option].text.starts_with("--")) ++option;
    const std::size_t end = option < words.size() ? words[option].start : line.size();
    std::string_view query = line.substr(words[first].start, end - words[first].start);
    texts = {"query", std::string(query.substr(0, query.find_last_not_of(kBlanks) + 1))};
    for (; option < words.size(); ++option) texts.push_back(words[option].text);
    return texts;
  }
  for (const ShellWord& word : words) {
    if (word.openQuote != 0) throw CommandLineError("a quote has no end");
    texts.push_back(word.text);
  }
  if (texts.size() > 0 && texts.front() == "?") texts.front() = "help";
  return texts;
}

}  // namespace host
