# bash completion for qxtool. qxtool names the candidates; where it names none, they are files.
_qxtool() {
  local words=("${COMP_WORDS[@]}") cword=$COMP_CWORD cur
  # A value such as @From:date=2003/01/31 is one word.
  declare -F _get_comp_words_by_ref >/dev/null && _get_comp_words_by_ref -n =: cur words cword
  mapfile -t COMPREPLY < <("${words[0]}" --complete "${words[@]:1:cword}" 2>/dev/null)
}
complete -o default -F _qxtool qxtool
