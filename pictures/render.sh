#!/usr/bin/env bash
# Renders the pictures of Vandrel: pictures/*.svg -> resources/*.ico
#
# Needs rsvg-convert (librsvg2-bin) and icotool (icoutils). The rendered files
# are kept in the repository, so only a change of a picture calls for this.
#
# <name>.svg is drawn on a 48x48 grid; <name>-16.svg and <name>-20.svg are the
# simplified drawings for those two sizes, with edges on whole pixels.
# Every .ico holds 16, 20, 24, 32, 40 and 48 px as 32-bit bitmaps with alpha.
# The program's own icon also holds 64 px likewise, and 128 and 256 px as PNG
# (as bitmaps these two alone would weigh 330 KB).
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

for source in "$here"/*.svg; do
    name=$(basename -- "$source" .svg)
    case $name in *-16|*-20) continue ;; esac

    sizes=(16 20 24 32 40 48)
    large=()
    if [[ $name == vandrel ]]; then
        sizes+=(64)
        large=(128 256)
    fi

    args=()
    for size in "${sizes[@]}" "${large[@]}"; do
        drawing=$source
        if [[ -f $here/$name-$size.svg ]]; then
            drawing=$here/$name-$size.svg
        fi
        png=$tmp/$name-$size.png
        rsvg-convert --width "$size" --height "$size" --output "$png" "$drawing"
        case " ${large[*]} " in
            *" $size "*) args+=("--raw=$png") ;;
            *) args+=("$png") ;;
        esac
    done

    # Written aside and moved, so that a failure leaves the old picture whole.
    icotool --create --icon --bit-depth=32 --output="$tmp/$name.ico" "${args[@]}"
    mv -f -- "$tmp/$name.ico" "$out/$name.ico"
done
