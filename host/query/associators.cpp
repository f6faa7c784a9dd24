#include "host/query/associators.h"

#include <algorithm>
#include <array>

#include "host/query/wql.h"
#include "platform/ascii.h"

namespace host {
namespace {

constexpr std::string_view kSeparators = " \t\r\n";

/// Removes and returns the next word, with the blanks before it.
std::string TakeWord(std::string_view* text) {
  text->remove_prefix(std::min(text->find_first_not_of(kSeparators), text->size()));
  const std::size_t end = std::min(text->find_first_of(" \t\r\n={}"), text->size());
  std::string word(text->substr(0, end));
  text->remove_prefix(end);
  return word;
}

void Expect(std::string_view* text, std::string_view query, std::string_view expected) {
  text->remove_prefix(std::min(text->find_first_not_of(kSeparators), text->size()));
  if (SameIgnoringAsciiCase(text->substr(0, expected.size()), expected)) {
    text->remove_prefix(expected.size());
    return;
  }
  throw QueryError("character " + std::to_string(query.size() - text->size() + 1) + ": expected " +
                   std::string(expected));
}

/// A key's value as providers write it: a text in single quotes gets double quotes.
std::string InDoubleQuotes(std::string_view value) {
  if (value.size() < 2 || value.front() != '\'' || value.back() != '\'') return std::string(value);
  std::string text;
  for (std::size_t at = 1; at + 1 < value.size(); ++at) {
    if (value[at] == '\\' && at + 2 < value.size()) ++at;
    text += value[at];
  }
  return Quoted(text);
}

}  // namespace

std::optional<AssociatorsQuery> ParseAssociators(std::string_view query,
                                                 const Repository& repository) {
  query = query.substr(0, query.find_last_not_of(" \t\r\n;") + 1);
  std::string_view text = query;
  const std::string verb = TakeWord(&text);
  AssociatorsQuery parsed;
  parsed.references = SameIgnoringAsciiCase(verb, "REFERENCES");
  if (!parsed.references && !SameIgnoringAsciiCase(verb, "ASSOCIATORS")) return std::nullopt;
  Expect(&text, query, "OF");
  Expect(&text, query, "{");
  // A key's text may contain any character; quotes in it have a \ before them.
  std::size_t end = 0;
  char quote = 0;
  while (end < text.size() && (quote != 0 || text[end] != '}')) {
    if (quote != 0 && text[end] == '\\') {
      ++end;
    } else if (quote != 0 ? text[end] == quote : text[end] == '"' || text[end] == '\'') {
      quote = quote == 0 ? text[end] : '\0';
    }
    ++end;
  }
  parsed.path = std::string(text.substr(0, std::min(end, text.size())));
  text.remove_prefix(std::min(end, text.size()));
  Expect(&text, query, "}");
  const ClassInfo* info = repository.FindClass(ClassNameOfPath(parsed.path));
  if (info == nullptr) {
    throw UnknownClassError("there is no class '" + ClassNameOfPath(parsed.path) + "'" +
                            repository.DidYouMeanClass(ClassNameOfPath(parsed.path)));
  }
  if (text.find_first_not_of(kSeparators) == std::string_view::npos) return parsed;
  Expect(&text, query, "WHERE");
  const std::array<std::pair<const char*, std::string*>, 4> members = {
      {{"ResultClass", &parsed.resultClass},
       {"Role", &parsed.role},
       {"AssocClass", &parsed.assocClass},
       {"ResultRole", &parsed.resultRole}}};
  const std::size_t accepted = parsed.references ? 2 : members.size();
  while (text.find_first_not_of(kSeparators) != std::string_view::npos) {
    const std::string name = TakeWord(&text);
    std::string* place = nullptr;
    for (std::size_t index = 0; index < accepted; ++index) {
      if (SameIgnoringAsciiCase(members[index].first, name)) place = members[index].second;
    }
    if (place == nullptr) {
      throw QueryError("'" + name + "' is not served here; " + verb + " OF takes ResultClass" +
                       (parsed.references ? " and Role" : ", Role, AssocClass and ResultRole"));
    }
    Expect(&text, query, "=");
    *place = TakeWord(&text);
    if (place->empty()) throw QueryError(name + ": a name is expected");
  }
  return parsed;
}

std::string CanonicalPath(std::string_view reference, const Repository& repository) {
  const std::size_t quote = std::min(reference.find_first_of("\"'"), reference.size());
  const std::size_t colon = reference.substr(0, quote).find(':');
  if (colon != std::string_view::npos) reference.remove_prefix(colon + 1);
  const ClassInfo* info = repository.FindClass(ClassNameOfPath(reference));
  const std::size_t equals = reference.find('=');
  if (info == nullptr || equals == std::string_view::npos) return std::string(reference);
  std::string key;
  for (const PropertyDeclaration& property : info->declaration.properties) {
    if (!property.qualifiers.Flag("key")) continue;
    if (!key.empty()) return std::string(reference);
    key = property.name;
  }
  return info->name() + "." + key + "=" + InDoubleQuotes(reference.substr(equals + 1));
}

}  // namespace host
