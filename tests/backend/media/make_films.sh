#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# make_films.sh DIRECTORY: fills it with films whose pictures are known, good ones and bad ones. Does
# nothing where they are all there.
set -eu

out=${1:?usage: make_films.sh DIRECTORY}
mkdir -p "$out"
stamp=$(cksum < "$0")
[ -f "$out/.complete" ] && [ "$(cat "$out/.complete")" = "$stamp" ] && exit 0
script=$0
cd "$out"
rm -f .complete

encode() { ffmpeg -hide_banner -loglevel error -nostdin -y "$@"; }
# A film of one colour each in its corners: red, green, blue, white.
quadrants() {
    printf 'color=red:s=%sx%s:r=25:d=%s[a];color=lime:s=%sx%s:r=25:d=%s[b];color=blue:s=%sx%s:r=25:d=%s[c];' \
        "$1" "$2" "$3" "$1" "$2" "$3" "$1" "$2" "$3"
    printf 'color=white:s=%sx%s:r=25:d=%s[d];[a][b]hstack[e];[c][d]hstack[f];[e][f]vstack' "$1" "$2" "$3"
}
tone="-f lavfi -i sine=440:r=44100"

encode -f lavfi -i "$(quadrants 160 120 12)" $tone -c:v mpeg4 -q:v 1 -c:a libmp3lame -shortest quadrants.avi
encode -f lavfi -i "$(quadrants 160 120 12)" $tone -c:v mpeg4 -q:v 1 -c:a aac -shortest -aspect 16:9 wide.mov
encode -i quadrants.avi -c copy -t 2 -f mov plain.mov
encode -i plain.mov -c copy -metadata:s:v rotate=90 rotated.mov
encode -f lavfi -i "$(quadrants 160 120 3)" -c:v mpeg4 -q:v 1 silent_quadrants.avi

# Two fields of each frame that differ as much as they can.
encode -f lavfi -i "color=black:s=320x240:r=50:d=6[a];color=white:s=320x240:r=50:d=6[b];[a][b]interleave,tinterlace=4" \
    -c:v mpeg2video -q:v 1 -flags +ilme+ildct -top 1 fields.mpg

# Tracks
cat > words.srt <<END
1
00:00:00,000 --> 00:00:12,000
########################
########################
END
encode -f lavfi -i "color=black:s=320x240:r=25:d=12" $tone -f lavfi -i "sine=880:r=48000" -i words.srt -t 12 \
    -map 0:v -map 1:a -map 2:a -map 3:s -c:v mpeg4 -c:a ac3 -c:s srt \
    -metadata:s:a:0 language=eng -metadata:s:a:1 language=fra -metadata:s:a:1 title=Commentary tracks.mkv

# Sizes
encode -f lavfi -i "color=red:s=16x16:r=25:d=2,format=bgr24,scale=1:1" -c:v rawvideo one.avi
encode -f lavfi -i "color=red:s=7680x4320:r=25:d=1" -c:v mpeg4 -q:v 10 huge.avi
encode -f lavfi -i "color=red:s=160x120:r=25:d=2" -c:v mpeg1video -f mpeg1video small.m1v
encode -f lavfi -i "color=blue:s=320x240:r=25:d=2" -c:v mpeg1video -f mpeg1video large.m1v
cat small.m1v large.m1v > changing.m1v
rm -f small.m1v large.m1v

# Pictures that do not move, and films that have none
encode $tone -f lavfi -i "color=red:s=320x240" -t 3 -frames:v 1 -map 0 -map 1 -c:a libmp3lame -c:v mjpeg \
    -disposition:v attached_pic cover.mp3
encode $tone -t 3 -c:a mp2 -f mpeg no_picture.mpg

# The picture's data alone is damaged: all but the first bytes of each of its chunks in the file.
python3 - <<END
import struct
film = bytearray(open("quadrants.avi", "rb").read())
at = film.index(b"movi") + 4
while film[at:at + 4] in (b"00dc", b"01wb"):
    (length,) = struct.unpack_from("<I", film, at + 4)
    if film[at:at + 4] == b"00dc":
        film[at + 8:at + 8 + length] = bytes((7 * i) & 0xFF for i in range(length))
    at += 8 + length + length % 2
open("broken.avi", "wb").write(film)
END

cd - > /dev/null
cksum < "$script" > "$out/.complete"
