# shellcheck shell=bash
# shellcheck disable=SC2154
# Starts and stops the local backend of a demo. Needs $data, a folder for data, and $build, the build
# folder.
backend_pid=
backend_fifo=

# start_backend ARGUMENT...: sets TOLVANE_API_URL.
start_backend() {
  backend_fifo=$(mktemp -u "$data/ready.XXXXXX")
  mkfifo "$backend_fifo"
  "$build/tools/local-backend/tolvane-backend" --port 0 "$@" >"$backend_fifo" &
  backend_pid=$!
  local line=
  read -r line <"$backend_fifo" || true
  rm -f "$backend_fifo"
  case $line in
    'listening on '*) export TOLVANE_API_URL=${line#listening on } ;;
    *)
      echo "The local backend did not start." >&2
      exit 1
      ;;
  esac
}

stop_backend() {
  rm -f "$backend_fifo"
  [ -n "$backend_pid" ] || return 0
  kill "$backend_pid" 2>/dev/null || true
  wait "$backend_pid" 2>/dev/null || true
  backend_pid=
}
