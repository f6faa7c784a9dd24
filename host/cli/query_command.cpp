#include <algorithm>
#include <iterator>

#include "host/cli/commands.h"
#include "host/cli/show.h"
#include "host/query/associators.h"
#include "host/query/wql.h"
#include "host/service/meant_path.h"

namespace host {
namespace {

bool Fits(const std::string& wanted, const std::string& name) {
  return wanted.empty() || SameIgnoringAsciiCase(wanted, name);
}

/// The properties of an association that refer to objects.
std::vector<std::size_t> ReferencesOf(const ClassInfo& info) {
  std::vector<std::size_t> references;
  for (std::size_t index = 0; index < info.declaration.properties.size(); ++index) {
    if (info.declaration.properties[index].type == CIM_REFERENCE) references.push_back(index);
  }
  return references;
}

/// Collects the result of the query from the instances of an association.
class Walk {
 public:
  Walk(const AssociatorsQuery& query, CommandContext& context)
      : query_(query), context_(context), path_(CanonicalPath(query.path, context.repository)) {}

  Outcome Run() {
    for (const ClassInfo* info : context_.repository.served()) {
      const std::vector<std::size_t> references = ReferencesOf(*info);
      if (references.size() < 2 || !Fits(query_.assocClass, info->name())) continue;
      if (query_.references && !Fits(query_.resultClass, info->name())) continue;
      const Outcome found = context_.session->Enumerate(info->name());
      if (FAILED(found.status)) outcome_.status = found.status;
      for (const CimObject& association : found.objects) Visit(association, references);
    }
    return std::move(outcome_);
  }

 private:
  std::string PathAt(const CimObject& association, std::size_t property) const {
    const Json value = ToJson(CIM_REFERENCE, association.Value(property));
    return value.is_string() ? CanonicalPath(value.get<std::string>(), context_.repository) : "";
  }

  void Visit(const CimObject& association, const std::vector<std::size_t>& references) {
    const auto& properties = association.info().declaration.properties;
    for (const std::size_t role : references) {
      if (!Fits(query_.role, properties[role].name) || PathAt(association, role) != path_) continue;
      if (query_.references) {
        outcome_.objects.push_back(association);
        return;
      }
      for (const std::size_t result : references) {
        if (result != role && Fits(query_.resultRole, properties[result].name)) {
          Add(PathAt(association, result));
        }
      }
    }
  }

  void Add(const std::string& path) {
    if (!Fits(query_.resultClass, ClassNameOfPath(path))) return;
    Outcome found = context_.session->Get(path);
    if (FAILED(found.status)) outcome_.status = found.status;
    std::ranges::move(found.objects, std::back_inserter(outcome_.objects));
  }

  const AssociatorsQuery& query_;
  CommandContext& context_;
  std::string path_;
  Outcome outcome_;
};

/// The classes that a meta_class query selects.
ExitStatus ShowClasses(const Command& command, CommandContext& context, const WqlQuery& query) {
  Outcome outcome;
  for (const ClassInfo* info : context.repository.served()) {
    CimObject object(*info, CimObject::Kind::kClass);
    if (query.Selects(object)) outcome.objects.push_back(std::move(object));
  }
  const std::vector<std::string> all = {"__CLASS", "__SUPERCLASS"};
  return Show(context, "query", "", outcome, command, query.columns.empty() ? all : query.columns);
}

}  // namespace

ExitStatus RunQuery(const Command& command, CommandContext& context) {
  const std::string text = command.Joined("WQL");
  if (command.Has("--provider")) {
    if (command.format == OutputFormat::kChart) {
      throw ValueError("--format chart does not go with --provider");
    }
    return Show(context, "query", "", context.session->Query(text), command, command.fields);
  }
  if (const auto associators = ParseAssociators(text, context.repository)) {
    if (const auto meant = MeantPath(associators->path, context.repository)) {
      throw QueryError("the texts of the path need quotes: {" + *meant + "}");
    }
    CheckChart(context.repository, command, nullptr);
    return Show(context, "query", associators->path, Walk(*associators, context).Run(), command,
                command.fields);
  }
  const WqlQuery query = ParseWql(text, context.repository);
  const ClassInfo* info = context.repository.FindClass(query.className);
  CheckChart(context.repository, command, info);
  if (query.ofClasses) return ShowClasses(command, context, query);
  const std::vector<std::string> fields = FieldsOf(info, command);
  Outcome outcome = context.session->Enumerate(query.className);
  std::erase_if(outcome.objects, [&](const CimObject& each) { return !query.Selects(each); });
  return Show(context, "query", "", outcome, command, fields.empty() ? query.columns : fields,
              info);
}

}  // namespace host
