# Whether there is a display that windows can open, without a window. Sourced by ./run.

# display_answers: false where none is named, and where nobody serves the named one or it is another user's, as after
# ssh and su. X is asked by what of its own tools is there; without them its display is taken for one, and the windows
# will tell.
display_answers() {
    local socket=${WAYLAND_DISPLAY:-}
    [[ -z $socket || $socket == /* ]] || socket=${XDG_RUNTIME_DIR:-}/$socket
    [ -z "$socket" ] || [ ! -w "$socket" ] || return 0
    [ -n "${DISPLAY:-}" ] || return 1
    if command -v xset >/dev/null; then
        timeout 5 xset q >/dev/null 2>&1
    elif command -v xdpyinfo >/dev/null; then
        timeout 5 xdpyinfo >/dev/null 2>&1
    fi
}

# window_packages: what windows need here at run time; nothing without a display.
window_packages() {
    [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] || echo "$WINDOW_PACKAGES ${WAYLAND_DISPLAY:+qt6-wayland}"
}

# why_no_display: in words, after display_answers has failed.
why_no_display() {
    if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then echo "The display can't be opened"; else echo "There is no display"; fi
}
