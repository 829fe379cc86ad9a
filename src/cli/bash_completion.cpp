#include "cli/usage_texts.h"

namespace tav {
namespace {

std::string Reply(const std::string& words) {
  return "mapfile -t COMPREPLY < <(compgen -W \"" + words + "\" -- \"$cur\")";
}

/// What offers the value of an option.
std::string OfferOf(const Option& option) {
  if (option.role == Option::Role::Value) return option.offers.empty() ? ":" : Reply(option.offers);
  std::string offer = "_filedir '@(" + option.offers + ")'";
  if (option.role == Option::Role::Template) offer += "; COMPREPLY+=($(compgen -W \"Default Imperial\" -- \"$cur\"))";
  return offer;
}

}  // namespace

std::string BashCompletion(const std::vector<Command>& commands) {
  std::string names, values, options, files;
  for (const Command& command : commands) {
    names += command.name + " ";
    options += "    " + command.name + ") options=\"";
    for (const Option& option : command.options) {
      if (!option.HasName()) {
        files += "    " + command.name + ") " + OfferOf(option) + " ;;\n";
        continue;
      }
      options += option.name + " ";
      if (!option.TakesValue()) continue;
      values += "    " + command.name + ":" + option.name;
      if (!option.shortName.empty()) values += " | " + command.name + ":" + option.shortName;
      values += ") " + OfferOf(option) + "; return ;;\n";
    }
    options += "--help\" ;;\n";
  }
  return "# bash completion for tavplan, as tavplan --bash-completion writes it\n"
         "_tavplan() {\n"
         "  local cur prev words cword options\n"
         "  _init_completion || return\n"
         "  if [ \"$cword\" -eq 1 ]; then\n"
         "    " +
         Reply(names + "--help --version") + "\n    return\n  fi\n  case ${words[1]}:$prev in\n" + values +
         "  esac\n  case ${words[1]} in\n" + options +
         "  esac\n"
         "  if [[ $cur == -* ]]; then\n"
         "    " +
         Reply("$options") + "\n    return\n  fi\n  case ${words[1]} in\n" + files +
         "  esac\n"
         "} && complete -F _tavplan tavplan\n";
}

}  // namespace tav
