# Completion of lorelin-cli for bash.
_lorelin_cli() {
  local cur prev words cword
  _init_completion || return
  local commands="say text spell voices run check reg"
  case $prev in
    --wav | -o | --output | --subtitles | --format | --deny | --voice | --speed | --pitch | --volume | --jobs) ;;
    *)
      if [ "$cword" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$commands --help --version" -- "$cur")
        return
      fi
      ;;
  esac
  case $prev in
    --deny) mapfile -t COMPREPLY < <(compgen -W "read download all" -- "$cur") && return ;;
    --format) mapfile -t COMPREPLY < <(compgen -W "wav mp3 opus ogg flac epub" -- "$cur") && return ;;
    --subtitles) mapfile -t COMPREPLY < <(compgen -W "srt lrc vtt" -- "$cur") && return ;;
    --speed | --pitch | --volume | --jobs | --voice) return ;;
  esac
  if [ "${words[1]}" = reg ] && [ "$cword" -eq 2 ]; then
    mapfile -t COMPREPLY < <(compgen -W "query add delete export import" -- "$cur")
  elif [[ $cur == -* ]]; then
    mapfile -t COMPREPLY < <(compgen -W "$(lorelin-cli --help 2>/dev/null | grep -oE -- '--[a-z]+' | sort -u)" -- "$cur")
  else
    _filedir
  fi
} && complete -F _lorelin_cli lorelin-cli
