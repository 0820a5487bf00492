#!/usr/bin/env python3
"""Synthesises Velto's alarm sound, a short two-tone chime played twice, as a WAV file.

Usage: make-alarm-sound.py OUTPUT.WAV

The build runs this and puts the file beside the program. The sound is computed here from sine
partials with a bell-like decay, so the program ships no recorded sound; the same input always
gives the same bytes.
"""
import math
import struct
import sys
import wave

RATE = 22050
# (start in seconds, fundamental in Hz): a falling third, then once more.
STRIKES = [(0.0, 1318.5), (0.35, 1046.5), (0.9, 1318.5), (1.25, 1046.5)]
# (ratio to the fundamental, loudness, decay per second): the inharmonic partials give the bell.
PARTIALS = [(1.0, 1.0, 4.0), (2.76, 0.35, 7.0), (5.4, 0.12, 12.0)]
LENGTH = 2.0
ATTACK = 0.004
PEAK = 0.7 * 32767


def strike(t, frequency):
    if t < 0:
        return 0.0
    attack = min(1.0, t / ATTACK)
    return attack * sum(loudness * math.exp(-decay * t) * math.sin(2 * math.pi * frequency * ratio * t)
                        for ratio, loudness, decay in PARTIALS)


def samples():
    raw = [sum(strike(i / RATE - start, f) for start, f in STRIKES) for i in range(int(LENGTH * RATE))]
    # A short fade at the end, so the last sample is silence and nothing clicks.
    fade = int(0.05 * RATE)
    for i in range(fade):
        raw[-1 - i] *= i / fade
    scale = PEAK / max(abs(v) for v in raw)
    return [int(round(v * scale)) for v in raw]


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    with wave.open(sys.argv[1], "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", s) for s in samples()))


if __name__ == "__main__":
    main()
