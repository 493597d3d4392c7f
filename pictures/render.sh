#!/usr/bin/env bash
# Renders Vandrel's icons: pictures/*.svg -> resources/*.ico
#
# Needs rsvg-convert (librsvg2-bin) and icotool (icoutils). The rendered files
# are kept in the repository, so this is needed only when a drawing changes.
#
# <name>.svg is the drawing, on a 48x48 grid unless its sizes need another;
# <name>-<size>.svg is the drawing for that size alone, with edges on whole
# pixels where the grid would blur them, and simpler if the size is small.
# On the 48x48 grid, even coordinates are whole pixels at 24 px too; 16, 20
# and 32 px have drawings of their own.
set -euo pipefail
export LC_ALL=C

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
out=$here/../resources

for tool in rsvg-convert icotool; do
    command -v "$tool" >/dev/null || { echo "render.sh: $tool is missing" >&2; exit 1; }
done

tmp=$(mktemp -d)
trap 'rm -rf -- "$tmp"' EXIT
mkdir -p -- "$out"

# The sizes of a picture in pixels: those kept as 32-bit bitmaps with alpha,
# and those kept as PNG because as bitmaps they would take a few hundred KB.
sizes_of() {
    bitmaps=(16 20 24 32 40 48)
    pngs=()
    case $1 in
        vandrel) bitmaps+=(64); pngs=(128 256) ;;
        # 100, 125, 150, 200 and 250 % of 64 px; drawn on a 96x96 grid, where
        # every sixth line is on whole pixels in all of them.
        logo) bitmaps=(64); pngs=(80 96 128 160) ;;
    esac
}

# render <name> <size>: draws it and sets png to the file
render() {
    local drawing=$here/$1-$2.svg
    [[ -f $drawing ]] || drawing=$here/$1.svg
    png=$tmp/$1-$2.png
    rsvg-convert --width "$2" --height "$2" --output "$png" "$drawing"
}

for source in "$here"/*.svg; do
    name=$(basename -- "$source" .svg)
    case $name in *-[0-9][0-9]) continue ;; esac

    sizes_of "$name"
    args=()
    for size in "${bitmaps[@]}"; do render "$name" "$size"; args+=("$png"); done
    for size in "${pngs[@]}"; do render "$name" "$size"; args+=("--raw=$png"); done

    # Written elsewhere and moved, so that a failure leaves the old icon intact.
    icotool --create --icon --bit-depth=32 --output="$tmp/$name.ico" "${args[@]}"
    mv -f -- "$tmp/$name.ico" "$out/$name.ico"
done
