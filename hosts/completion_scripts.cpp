#include "hosts/completion_scripts.h"

#include <algorithm>

#include "hosts/commands.h"
#include "hosts/completion.h"
#include "hosts/session.h"

namespace quarvel::hosts {
namespace {

// Readline takes "=" for the end of a word: what it split is put together again, and only what stands
// behind the "=" is handed back.
constexpr std::string_view kBash =
    R"(# Completes command lines of quarvel in bash. Made by "quarvel completion bash".
_quarvel() {
  local IFS=$'\n' i word prefix= joins=
  local -a typed=() lines=() files=()
  for ((i = 1; i <= COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    word=${word/#\~\//$HOME/}
    word=${word//[\\\"\']/}
    if [[ ${#typed[@]} -gt 0 && ( $joins || $word == = ) ]]; then
      typed[${#typed[@]}-1]+=$word
    else
      typed+=("$word")
    fi
    joins=
    [[ $word != = ]] || joins=1
  done
  word=${typed[${#typed[@]}-1]}
  if [[ $word == *=* && $COMP_WORDBREAKS == *=* ]]; then prefix=${word%=*}=; fi
  mapfile -t lines < <("${COMP_WORDS[0]/#\~\//$HOME/}" __complete "${typed[@]}" 2>/dev/null)
  COMPREPLY=()
  case ${lines[0]} in
    models | files)
      compopt -o filenames
      [[ $word != -*=* ]] || word=${word#*=}
      mapfile -t files < <(compgen -f -- "$word")
      for i in "${files[@]}"; do
        case ${lines[0]}:${i,,} in
          files:* | models:{SUFFIXES}) COMPREPLY+=("$i") ;;
          *) [[ ! -d $i ]] || COMPREPLY+=("$i") ;;
        esac
      done
      ;;
    *)
      for i in "${lines[@]:1}"; do
        i=${i%%$'\t'*}
        [[ $i != *= ]] || compopt -o nospace
        printf -v i %q "${i#"$prefix"}"
        COMPREPLY+=("$i")
      done
      ;;
  esac
}
complete -F _quarvel quarvel
)";

constexpr std::string_view kZsh = R"(#compdef quarvel
# Completes command lines of quarvel in zsh. Made by "quarvel completion zsh".
compdef _quarvel quarvel
_quarvel() {
  local line
  local -a lines plain open shown_plain shown_open
  lines=("${(@f)$("${words[1]/#\~\//$HOME/}" __complete "${(@Q)words[2,CURRENT]}" 2>/dev/null)}")
  case $lines[1] in
    models) compset -P '-*='; _files -g '{SUFFIXES}' ;;
    files) compset -P '-*='; _files ;;
    *)
      for line in "${(@)lines[2,-1]}"; do
        if [[ ${line%%$'\t'*} == *= ]]; then
          open+=("${line%%$'\t'*}") shown_open+=("${line/$'\t'/  -- }")
        else
          plain+=("${line%%$'\t'*}") shown_plain+=("${line/$'\t'/  -- }")
        fi
      done
      (( ! $#plain )) || compadd -l -d shown_plain -a plain
      (( ! $#open )) || compadd -S '' -l -d shown_open -a open
      ;;
  esac
}
if [[ $funcstack[1] == _quarvel ]]; then _quarvel "$@"; fi
)";

constexpr std::string_view kFish =
    R"(# Completes command lines of quarvel in fish. Made by "quarvel completion fish".
function __quarvel_complete
    set -l words (commandline -opc) (commandline -ct)
    set -l lines ($words[1] __complete (string unescape -- $words[2..-1]) 2>/dev/null)
    set -l word (string replace -r '^-.*?=' '' -- $words[-1])
    set -l kept (string sub -l (math (string length -- $words[-1]) - (string length -- $word)) -- $words[-1])
    switch $lines[1]
        case models
            for file in (complete -C "__quarvel_file "(string escape -- $word))
                set file (string split -f 1 \t -- $file)
                if string match -qr '(/|{SUFFIXES})$' -- (string lower -- $file)
                    echo $kept$file
                end
            end
        case files
            for file in (complete -C "__quarvel_file "(string escape -- $word))
                echo $kept(string split -f 1 \t -- $file)
            end
        case none
            string join \n -- $lines[2..-1]
    end
end
complete -c quarvel -f -a '(__quarvel_complete)'
)";

constexpr CompletionScript kScripts[] = {
    {"bash", kBash, " | models:*"}, {"zsh", kZsh, "|"}, {"fish", kFish, "|"}};

}  // namespace

std::span<const CompletionScript> CompletionScripts() { return kScripts; }

std::string TextOf(const CompletionScript& script) {
  constexpr std::string_view kPlace = "{SUFFIXES}";
  std::string suffixes;
  for (const std::string_view suffix : ModelSuffixes()) {
    if (!suffixes.empty()) suffixes += script.separator;
    suffixes += suffix;
  }
  if (script.shell == "bash") suffixes.insert(0, "*");
  if (script.shell == "zsh") suffixes = "(#i)*(" + suffixes + ")(-.)";
  std::string text(script.text);
  return text.replace(text.find(kPlace), kPlace.size(), suffixes);
}

int RunCompletion(Session& session) {
  const std::string& shell = session.arguments.operands.front();
  std::string known;
  for (const CompletionScript& script : CompletionScripts()) {
    if (script.shell == shell) {
      session.streams.out << TextOf(script);
      return kGood;
    }
    if (!known.empty()) known += ", ";
    known += script.shell;
  }
  throw CommandError(kUsage, "completion knows " + known + ", not " + shell);
}

}  // namespace quarvel::hosts
