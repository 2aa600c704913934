# Starts the program on a screen of its own and works it by keys and clicks; read by scripts such as pictures.sh, which set
# root, program and target. What fails ends the script.

screen_width=1024
screen_height=768
# Of the package fonts-dejavu-core.
number_font=/usr/share/fonts/truetype/dejavu/DejaVuSans-Bold.ttf
# Milliseconds between two keys; the program answers each before the next comes.
key_delay=30
# Tenths of a second that anything may take to appear.
patience=100

screen_pid=
manager_pid=
program_pid=
# Title of the program's own window.
main=
work=

fail() {
    echo "$(basename "$0"): $*" >&2
    exit 1
}

# The picture that is being made, for messages.
scene=

stop() {
    [ -z "$1" ] || { kill "$1" && wait "$1"; } 2>/dev/null || true
}

clean_up() {
    status=$?
    trap - EXIT
    stop "$program_pid"
    stop "$manager_pid"
    stop "$screen_pid"
    [ -z "$work" ] || rm -rf "$work"
    exit "$status"
}
trap clean_up EXIT
trap 'exit 1' HUP INT TERM

# Repeats a command until it succeeds.
await() {
    what=$1
    shift
    tries=$patience
    until "$@" >/dev/null 2>&1; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || fail "$scene: waited in vain for $what"
        sleep 0.1
    done
}

# A folder for the data whose name may be seen in the pictures: it is new, and this script's own.
make_folder() {
    for name in Archivio Archivio2 Archivio3 Archivio4 Archivio5; do
        if mkdir "${TMPDIR:-/tmp}/$name" 2>/dev/null; then
            work=${TMPDIR:-/tmp}/$name
            return
        fi
    done
    fail "no new folder can be made in ${TMPDIR:-/tmp}"
}

start_screen() {
    make_folder
    mkdir "$work/.run"
    chmod 700 "$work/.run"
    # The server finds a display that is free, and tells its number.
    Xvfb -displayfd 3 -screen 0 "${screen_width}x${screen_height}x24" -nolisten tcp 3>"$work/.run/display" \
        2>"$work/.run/Xvfb.log" &
    screen_pid=$!
    await "the screen" grep -q . "$work/.run/display"
    DISPLAY=:$(cat "$work/.run/display")
    export DISPLAY
    # No keys of the window manager's own: all of them are for the program.
    cat >"$work/.run/openbox.xml" <<'XML'
<openbox_config xmlns="http://openbox.org/3.4/rc">
  <focus><focusNew>yes</focusNew></focus>
  <theme><name>Clearlooks</name></theme>
  <keyboard/>
  <applications><application type="normal"><maximized>yes</maximized></application></applications>
</openbox_config>
XML
    openbox --config-file "$work/.run/openbox.xml" >"$work/.run/openbox.log" 2>&1 &
    manager_pid=$!
    await "the window manager" xdotool getwindowfocus
    xdotool mousemove $((screen_width - 2)) $((screen_height - 2))
}

# start [FILE]: the program in a folder with nothing but a fresh copy of the sample, which it opens when it is
# named.
start() {
    [ -z "$program_pid" ] || stop "$program_pid"
    program_pid=
    find "$work" -maxdepth 1 -type f -delete
    cp "$root/samples/pazienti.rec" "$work/"
    touch -d '2026-11-20 09:30' "$work/pazienti.rec"
    env -u WAYLAND_DISPLAY HOME="$work" XDG_CONFIG_HOME="$work/.run" XDG_CACHE_HOME="$work/.run" \
        XDG_RUNTIME_DIR="$work/.run" QT_QPA_PLATFORM=xcb QT_SCALE_FACTOR=1 LC_ALL=C.UTF-8 \
        sh -c 'cd "$1" && shift && exec "$@"' sh "$work" "$program" ${1:+"$work/$1"} 2>"$work/.run/program.log" &
    program_pid=$!
    main="${1:+$1 - }Quorvin"
    await_window "$main"
    settle
}

# await_window NAME: until a window with this title has the focus.
await_window() {
    await "the window \"$1\"" has_focus "$1"
}

has_focus() {
    [ "$(xdotool getwindowname "$(xdotool getwindowfocus)")" = "$1" ]
}

# Until the screen has stopped changing: three looks in a row that are alike.
settle() {
    before=
    same=0
    tries=$patience
    while [ "$same" -lt 3 ]; do
        tries=$((tries - 1))
        [ "$tries" -gt 0 ] || fail "$scene: the screen does not come to rest"
        sleep 0.05
        now=$(look)
        if [ "$now" = "$before" ]; then same=$((same + 1)); else same=0; fi
        before=$now
    done
}

look() {
    import -silent -window root ppm:- | cksum
}

# keys KEY...: one after the other.
keys() {
    kill -0 "$program_pid" 2>/dev/null || fail "$scene: the program has ended"
    xdotool key --delay "$key_delay" "$@"
}

type_text() {
    xdotool type --delay "$key_delay" -- "$1"
    settle
}

repeat() {
    n=$1
    shift
    while [ "$n" -gt 0 ]; do
        keys "$@"
        n=$((n - 1))
    done
}

# menu LETTER PLACE: the item at a place of a menu, counted from 0, separators and grey items aside.
menu() {
    show_menu "$1"
    repeat "$2" Down
    keys Return
    settle
}

show_menu() {
    keys "alt+$1"
    settle
}

# field N: puts the focus into the box of a field, from the box of the record number on.
boxes_before_fields=4
field() {
    keys alt+v
    repeat $((boxes_before_fields + $1)) Tab
}

# choose N [TEXT]: chooses a field and types into it.
choose() {
    field "$1"
    keys ctrl+space
    [ -z "${2:-}" ] || type_text "$2"
}

# The button "cancella", before the box of the record number.
clear_boxes() {
    keys alt+v shift+Tab space
}

go_to() {
    keys alt+v ctrl+a
    type_text "$1"
}

# click X Y [BUTTON]; the pointer goes out of the picture again.
click() {
    xdotool mousemove "$1" "$2" click "${3:-1}"
    settle
    xdotool mousemove $((screen_width - 2)) $((screen_height - 2))
}

# click_field N: at the place of the sample's field, in the maximized window.
click_field() {
    case $1 in
    1) click 188 94 ;; 2) click 555 94 ;; 3) click 120 126 ;; 4) click 540 126 ;; 5) click 128 142 ;;
    6) click 195 174 ;; 7) click 508 174 ;; 8) click 228 206 ;; 9) click 540 206 ;; 10) click 132 222 ;;
    11) click 512 222 ;; 12) click 268 254 ;;
    *) fail "$scene: the sample has no field $1" ;;
    esac
}

# answer KEY: presses a key in a box that stands in front of the window, and waits until it is gone.
answer() {
    keys "$1"
    await_window "$main"
    settle
}

# Puts the numbers 1, 2, ... where the scene has set them, each "x,y".
number_parts() {
    n=0
    for place in $labels; do
        n=$((n + 1))
        x=${place%,*}
        y=${place#*,}
        convert "$work/.run/screen.png" -fill '#c00000' -draw "circle $x,$y $((x + 12)),$y" -fill white \
            -font "$number_font" -pointsize 16 -gravity center \
            -annotate "+$((x - screen_width / 2))+$((y - screen_height / 2))" "$n" "$work/.run/screen.png"
    done
}

# is_the_same A B: whether two pictures differ by no more than a caret, which comes and goes. Such a picture is
# not made anew.
is_the_same() {
    [ -f "$2" ] || return 1
    different=$(compare -metric AE -fuzz 15% "$1" "$2" null: 2>&1) || true
    case $different in
    "" | *[!0-9]*) return 1 ;;
    *) [ "$different" -le 60 ] ;;
    esac
}

# make_picture NAME: runs the scene of this name and saves the screen, or the part of it that the scene sets:
# width, height and place of its corner. A scene gets a screen without its predecessor's program.
part=
labels=
make_picture() {
    scene=$1
    [ -n "$screen_pid" ] || start_screen
    labels=
    part=${screen_width}x$screen_height+0+0
    "scene_$scene"
    settle
    import -silent -window root "$work/.run/screen.png" || fail "$scene: no picture of the screen"
    number_parts
    file=$target/$(echo "$scene" | tr _ -).png
    convert "$work/.run/screen.png" -crop "$part" +repage -strip +dither -colors 48 "PNG8:$work/.run/$scene.png" ||
        fail "$scene: not saved"
    is_the_same "$work/.run/$scene.png" "$file" || cp "$work/.run/$scene.png" "$file"
    echo "$file"
}
