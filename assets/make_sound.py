#!/usr/bin/env python3
"""Makes Tav.wav, the sound of the splash picture.

Two soft sonar-like tones, the second a fifth above the first, each dying
away, with a few small bubbles rising under them.  Mono, 16 bit, 22050 Hz.
The bubbles come from a fixed seed, so every run writes the same file.

    python3 make_sound.py [file]
"""

import math
import os
import random
import struct
import sys
import wave

RATE = 22050
LENGTH = 1.2      # seconds
PEAK = 0.55       # of full scale: present, but not loud
SEED = 40


def ping(samples, start, pitch, level, decay):
    """A tone with two quiet overtones, struck softly and dying away."""
    partials = ((1.0, 1.0, 1.0), (2.0, 0.22, 1.8), (3.01, 0.07, 3.0))
    first = int(start * RATE)
    for i in range(first, len(samples)):
        t = (i - first) / RATE
        attack = 1.0 - math.exp(-t / 0.006)
        tone = sum(share * math.exp(-t * decay * faster)
                   * math.sin(2 * math.pi * pitch * ratio * t)
                   for ratio, share, faster in partials)
        samples[i] += level * attack * tone


def bubble(samples, start, pitch, level):
    """A short chirp: the pitch of a bubble rises as it nears the surface."""
    first = int(start * RATE)
    span = 0.07
    phase = 0.0
    for i in range(first, min(len(samples), first + int(span * RATE))):
        t = (i - first) / RATE
        phase += 2 * math.pi * pitch * (1.0 + 5.0 * t) / RATE
        samples[i] += level * math.sin(math.pi * t / span) ** 2 * math.sin(phase)


def main():
    folder = os.path.dirname(os.path.abspath(__file__))
    target = sys.argv[1] if len(sys.argv) > 1 else os.path.join(folder, "Tav.wav")
    samples = [0.0] * int(LENGTH * RATE)

    ping(samples, 0.02, 523.25, 0.8, 5.0)
    ping(samples, 0.30, 783.99, 0.7, 4.5)

    chance = random.Random(SEED)
    for k in range(9):
        bubble(samples, 0.10 + 0.09 * k + chance.uniform(0.0, 0.05),
               chance.uniform(380.0, 950.0), chance.uniform(0.06, 0.16))

    # A smooth end, so that nothing clicks.
    fade = int(0.25 * RATE)
    for k in range(fade):
        samples[-1 - k] *= 0.5 - 0.5 * math.cos(math.pi * k / fade)

    gain = PEAK * 32767 / max(abs(s) for s in samples)
    with wave.open(target, "wb") as out:
        out.setnchannels(1)
        out.setsampwidth(2)
        out.setframerate(RATE)
        out.writeframes(b"".join(struct.pack("<h", round(s * gain)) for s in samples))


if __name__ == "__main__":
    main()
