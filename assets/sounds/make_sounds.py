#!/usr/bin/env python3
"""Synthesises the five alarm sounds into the folder given (default: the script's own).

Uses only the standard library. The same sources give the same bytes, because the noise comes
from a seeded generator. Every sound starts and ends at zero, so that it loops without a click.
"""

import array
import math
import os
import random
import sys
import wave

RATE = 22050
TAU = 2.0 * math.pi


class Sound:
    """A mono buffer of a fixed length, into which voices are mixed."""

    def __init__(self, seconds):
        self.data = [0.0] * round(seconds * RATE)

    def mix(self, start, seconds, voice):
        """Adds voice(t), with t in seconds from start. Samples past the end are dropped."""
        first = round(start * RATE)
        for i in range(min(round(seconds * RATE), len(self.data) - first)):
            self.data[first + i] += voice(i / RATE)

    def write(self, path, peak, fade_out):
        """Scales to the peak (0..1), fades both ends to zero and writes 16-bit PCM."""
        scale = peak / max(abs(v) for v in self.data)
        count = len(self.data)
        fade_in_samples = round(0.002 * RATE)
        fade_out_samples = round(fade_out * RATE)
        pcm = array.array("h")
        for i, value in enumerate(self.data):
            gain = min(1.0, i / fade_in_samples)
            left = count - 1 - i
            if left < fade_out_samples:
                gain *= 0.5 - 0.5 * math.cos(math.pi * left / fade_out_samples)
            pcm.append(round(32767 * scale * gain * value))
        if sys.byteorder == "big":
            pcm.byteswap()
        with wave.open(path, "wb") as out:
            out.setnchannels(1)
            out.setsampwidth(2)
            out.setframerate(RATE)
            out.writeframes(pcm.tobytes())


def gate(t, length, attack, release):
    """A smooth envelope that rises, holds, and falls to zero at its length."""
    if t < attack:
        return 0.5 - 0.5 * math.cos(math.pi * t / attack)
    if t > length - release:
        return 0.5 - 0.5 * math.cos(math.pi * max(0.0, length - t) / release)
    return 1.0


def alarm_buzzer():
    """Three long, low, reedy buzzes: odd harmonics over 220 Hz, with a slow flutter.

    Small speakers play nothing below some 500 Hz, so the harmonics are strong.
    """
    sound = Sound(2.40)

    def buzz(t):
        tone = sum(math.sin(TAU * 220 * k * t) / k**0.6 for k in range(1, 16, 2))
        flutter = 1.0 + 0.18 * math.sin(TAU * 27.5 * t)
        return tone * flutter * gate(t, 0.55, 0.012, 0.03)

    for start in (0.0, 0.8, 1.6):
        sound.mix(start, 0.55, buzz)
    return sound


def alert_chime():
    """Three rising notes of struck bars, C6 E6 G6, each ringing into the next."""
    sound = Sound(2.40)

    def bar(frequency):
        partials = ((1.0, 1.0, 2.6), (2.756, 0.22, 6.5), (5.404, 0.07, 14.0))

        def voice(t):
            strike = min(1.0, t / 0.003)
            return strike * sum(
                level * math.sin(TAU * frequency * ratio * t) * math.exp(-decay * t)
                for ratio, level, decay in partials
                if frequency * ratio < RATE * 0.45
            )

        return voice

    for start, frequency in ((0.0, 1046.50), (0.24, 1318.51), (0.48, 1567.98)):
        sound.mix(start, 2.4, bar(frequency))
    return sound


def cuckoo_clock():
    """The two pipes of a cuckoo clock: F#5, then a major third down to D5."""
    sound = Sound(2.00)
    breath = random.Random(1738)

    def pipe(frequency, length):
        noise = [0.0]

        def voice(t):
            envelope = gate(t, length, 0.035, 0.11)
            # The bellows: the pitch starts 3 % low, settles within 30 ms, and sags by 1 % as
            # the air goes. A phase is the integral of the pitch.
            scoop = 0.03 * 0.03 * math.exp(-t / 0.03)
            sag = 0.005 * t * t / length
            phase = TAU * frequency * (t + scoop - sag)
            # A stopped pipe: mostly the fundamental, then its odd harmonics.
            tone = math.sin(phase) + 0.15 * math.sin(2 * phase) + 0.20 * math.sin(3 * phase)
            noise[0] += 0.25 * (breath.uniform(-1.0, 1.0) - noise[0])
            return envelope * (tone + 0.10 * noise[0])

        return voice

    sound.mix(0.02, 0.34, pipe(739.99, 0.34))
    sound.mix(0.50, 0.62, pipe(587.33, 0.62))
    # Short echoes from the wooden case follow each call.
    dry = list(sound.data)
    for delay, level in ((0.031, 0.16), (0.067, 0.11), (0.113, 0.07), (0.171, 0.045)):
        shift = round(delay * RATE)
        for i in range(shift, len(dry)):
            sound.data[i] += level * dry[i - shift]
    return sound


def alarm_clock():
    """A digital alarm clock: twice four short pips at 2048 Hz, then a rest."""
    sound = Sound(2.00)

    def pip(t):
        tone = math.sin(TAU * 2048 * t) + 0.15 * math.sin(TAU * 3 * 2048 * t)
        return tone * gate(t, 0.075, 0.004, 0.008)

    for group in (0.0, 1.0):
        for beat in range(4):
            sound.mix(group + 0.125 * beat, 0.075, pip)
    return sound


def bell_alarm():
    """A wind-up alarm: a clapper between two small bells, 24 strokes a second."""
    sound = Sound(2.00)
    hand = random.Random(12)

    def bell(frequency, force):
        partials = (
            (0.5, 0.10, 10.0),
            (1.0, 1.00, 7.0),
            (1.498, 0.22, 12.0),
            (2.093, 0.30, 16.0),
            (2.760, 0.12, 26.0),
        )
        voices = [
            (TAU * frequency * ratio, level * force, decay)
            for ratio, level, decay in partials
            if frequency * ratio < RATE * 0.45
        ]

        def voice(t):
            strike = min(1.0, t / 0.0015)
            return strike * sum(
                level * math.sin(angular * t) * math.exp(-decay * t)
                for angular, level, decay in voices
            )

        return voice

    for stroke in range(36):
        frequency = 2790.0 if stroke % 2 == 0 else 3130.0
        start = stroke / 24.0 + hand.uniform(0.0, 0.002)
        sound.mix(start, 0.55, bell(frequency, hand.uniform(0.85, 1.0)))
    return sound


# The peaks make all sounds equally loud: -12.5 LUFS within half a unit (measure-loudness).
SOUNDS = (
    ("Alarm buzzer.wav", alarm_buzzer, 0.636, 0.01),
    ("Alert chime.wav", alert_chime, 0.89, 0.60),
    ("Cuckoo clock.wav", cuckoo_clock, 0.51, 0.05),
    ("Alarm clock.wav", alarm_clock, 0.37, 0.01),
    ("Bell alarm.wav", bell_alarm, 0.60, 0.45),
)


def main():
    folder = sys.argv[1] if len(sys.argv) > 1 else os.path.dirname(os.path.abspath(__file__))
    for name, make, peak, fade_out in SOUNDS:
        make().write(os.path.join(folder, name), peak, fade_out)


if __name__ == "__main__":
    main()
