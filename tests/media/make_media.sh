#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Orvane Tonvale developers
# SPDX-License-Identifier: GPL-3.0-or-later
#
# make_media.sh DIRECTORY: fills it with media of every kind that the player opens, each 12 seconds
# long: a tone of 440 Hz on the left, of 660 Hz on the right. Does nothing where they are all there.
set -eu

out=${1:?usage: make_media.sh DIRECTORY}
here=$(cd "$(dirname "$0")" && pwd)
mkdir -p "$out"
stamp=$(cksum "$0" "$here/make_rest.py" | cksum)
[ -f "$out/.complete" ] && [ "$(cat "$out/.complete")" = "$stamp" ] && exit 0
cd "$out"
rm -f .complete

encode() { ffmpeg -hide_banner -loglevel error -nostdin -y "$@"; }
picture="-f lavfi -i testsrc=duration=12:size=160x128:rate=25"

# Sound
sox -n -r 44100 -b 16 -c 2 tone.wav synth 12 sine 440 sine 660 gain -6
sox tone.wav -r 44100 -c 1 mono.wav remix 1
for kind in aif aiff aifc au mp2; do sox tone.wav "tone.$kind"; done
cp tone.au tone.snd
cp tone.mp2 tone.mpa
encode -i tone.wav -c:a wmav2 -f asf tone.asf
cp tone.asf tone.wma

# MPEG layer 3: a constant rate, a varying one, and a varying one that tells no length
lame --quiet -b 128 tone.wav tone.mp3
sox -n -r 44100 -c 2 quiet.wav synth 6 sine 440 gain -30
sox -n -r 44100 -c 2 -R loud.wav synth 6 whitenoise gain -6
sox quiet.wav loud.wav uneven.wav
lame --quiet -V 4 uneven.wav vbr.mp3
lame --quiet -V 4 -t uneven.wav vbr_without_header.mp3
rm -f quiet.wav loud.wav

# Real media
encode -i tone.wav -c:a ac3 -f rm tone.ra
encode $picture -i tone.wav -c:v rv10 -c:a ac3 -f rm tone.rm

# Films
encode $picture -i tone.wav -c:v mpeg4 -c:a libmp3lame -shortest tone.avi
encode $picture -i tone.wav -c:v mpeg1video -c:a mp2 -shortest -f mpeg tone.mpg
for kind in mpeg mpv enc; do cp tone.mpg "tone.$kind"; done
encode $picture -i tone.wav -c:v mpeg1video -c:a mp2 -shortest -packetsize 2324 -muxrate 1411200 -f vcd vcd.mpg
encode $picture -i tone.wav -c:v mpeg4 -c:a pcm_s16be -shortest -f mov tone.mov
cp tone.mov tone.qt
encode $picture -c:v mpeg1video -f mpeg1video silent.m1v
encode $picture -c:v mpeg4 silent.avi

python3 "$here/make_rest.py" .
cp song.mid song.midi
cp tone.rm tone.rmm
cp tone.ra tone.rpm
cp tone.ra tone.ram

printf '%s\n' "$stamp" > .complete
