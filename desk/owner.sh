# shellcheck shell=bash
# as_owner PATH COMMAND...: what root makes in somebody else's folder belongs to that person, who can go on with it.
# PATH need not exist: the folder is the nearest one that does.
as_owner() {
  local folder user group become
  folder=$(realpath -m "$1")
  until [ -d "$folder" ]; do folder=$(dirname "$folder"); done
  read -r user group < <(stat -c '%u %g' "$folder")
  become=(setpriv --reuid "$user" --regid "$group" --clear-groups env -u HOME)
  if [ "$(id -u)" = 0 ] && [ "$user" != 0 ] && "${become[@]}" test -w "$folder" 2>/dev/null; then
    "${become[@]}" "${@:2}"
  else
    "${@:2}"
  fi
}
