#!/bin/sh
# Renders every sound, icon and picture from its source. The folders are relative to this script:
#
#   sounds/make_sounds.py      -> sounds/*.wav
#   icons/src/*.svg            -> icons/*.ico
#   images/src/*.svg           -> images/*.ico
#   pictures/src/*.svg         -> pictures/*.gif, pictures/*.jpg, and two larger versions of each:
#                                 pictures/*@2x.png, pictures/*@3x.png
#   pictures/src/mascot.svg    -> installer/side-<percent>.bmp, the picture beside the installer's last
#                                 page
#
# The rendered files are in the repository, so that a build needs none of the tools below. The
# same sources give the same files. After a change of a sound, run sounds/measure-loudness too.
#
# If NAME-S.svg exists, it is the source of icon NAME at size S, drawn to that size's pixel grid.
# All other sizes are rendered from NAME.svg.
set -eu

cd "$(dirname "$0")"

packages="librsvg2-bin icoutils imagemagick python3"
missing=
for tool in rsvg-convert icotool convert python3; do
    command -v "$tool" >/dev/null 2>&1 || missing="$missing $tool"
done
if [ -n "$missing" ]; then
    echo "render.sh: not found:$missing" >&2
    echo "render.sh: on Debian: apt-get install $packages" >&2
    exit 1
fi

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT

# icon FOLDER NAME SIZE...
icon() {
    folder=$1
    name=$2
    shift 2
    set -- "$@" end
    while [ "$1" != end ]; do
        size=$1
        shift
        source=$folder/src/$name-$size.svg
        [ -f "$source" ] || source=$folder/src/$name.svg
        png=$scratch/$name-$size.png
        rsvg-convert --width="$size" --height="$size" --output="$png" "$source"
        # Large images are stored as PNG; as bitmaps they would take most of the file.
        if [ "$size" -ge 96 ]; then
            set -- "$@" "--raw=$png"
        else
            set -- "$@" "$png"
        fi
    done
    shift
    icotool --create --output="$folder/$name.ico" "$@"
}

# gif NAME: GIF has no partial transparency, so edge pixels are blended with a light grey close to
# the colour of a dialog, and those that are mostly transparent become fully transparent. Edges
# are smooth on a light window and have no dark fringe on other colours.
gif() {
    png=$scratch/$1.png
    rsvg-convert --output="$png" "pictures/src/$1.svg"
    convert \
        \( "$png" -background '#f4f4f4' -alpha remove -alpha off \) \
        \( "$png" -alpha extract -threshold 30% \) \
        -alpha off -compose CopyOpacity -composite \
        -transparent-color white \
        +dither -colors 255 -strip "pictures/$1.gif"
}

# jpg NAME
jpg() {
    png=$scratch/$1.png
    rsvg-convert --output="$png" "pictures/src/$1.svg"
    convert "$png" -background white -alpha remove -alpha off \
        -sampling-factor 4:4:4 -quality 92 -strip "pictures/$1.jpg"
}

# larger NAME: renders the versions that are shown at higher scales in place of the picture itself.
larger() {
    for times in 2 3; do
        rsvg-convert --zoom="$times" --output="pictures/$1@${times}x.png" "pictures/src/$1.svg"
    done
}

python3 sounds/make_sounds.py sounds

# The sizes at 100, 125, 150, 175, 200, 225, 250 and 300 %.
for name in logo note alarmon; do
    icon icons "$name" 16 20 24 28 32 36 40 48 56 64 72 80 96 128 256
done
for name in tb_save tb_kill tb_print tb_hide tb_help tb_about; do
    icon images "$name" 24 30 36 42 48 54 60 72
done
for name in alarmset alarmnotset run bell; do
    icon images "$name" 16 20 24 28 32 36 40 48
done
icon images tip 96 120 144 168 192 216 240 256

for name in jotwright_title letters mascot_error no_Fslash error; do
    gif "$name"
    larger "$name"
done
jpg mascot
larger mascot

# side PERCENT
side() {
    png=$scratch/side.png
    rsvg-convert --width=$((140 * $1 / 100)) --output="$png" pictures/src/mascot.svg
    convert "$png" -background '#dbe8fa' -gravity center \
        -extent "$((164 * $1 / 100))x$((314 * $1 / 100))" -alpha remove -alpha off \
        +dither -colors 255 -type Palette -strip "BMP3:installer/side-$1.bmp"
}
for percent in 100 125 150 175 200 225 250 300; do
    side "$percent"
done
