#!/bin/sh
# Makes the pictures of the guide: sh packaging/guide/pictures.sh [PROGRAM [FOLDER [PICTURE...]]]
# Works the real program on copies of the sample, with keys and clicks, on a screen of its own (Xvfb, openbox).
# All pictures, or those that are named as in scenes.sh, go into FOLDER (doc/guida). Fails when one of them cannot be made.
set -eu

here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
program=$(realpath "${1:-$root/build/bin/quorvin}")
target=${2:-$root/doc/guida}
[ $# -lt 2 ] || shift
[ $# -lt 1 ] || shift
wanted=$*

. "$here/driving.sh"
. "$here/scenes.sh"

for scene in $wanted; do
    case " $(echo $scenes) " in *" $scene "*) ;; *) fail "there is no picture $scene" ;; esac
done
mkdir -p "$target"
for scene in $scenes; do
    case " ${wanted:-$scene} " in *" $scene "*) make_picture "$scene" ;; esac
done
echo "The guide's pictures are in $target"
