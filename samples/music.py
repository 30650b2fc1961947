"""The samples' sound: plucked notes, mixed and written as a wave file.

Not here: when a ball touches the ground is derived from scene.py's balls, handed in.
"""

import array
import functools
import math
import wave
from dataclasses import dataclass

RATE = 48000
RING = 2.4  # seconds that a note may sound
PEAK = 0.6  # of full scale, so that a louder volume setting still has room
ARPEGGIO_SECONDS = 10
# Of one note: how many times its frequency, how loud, how fast it fades (per second).
PARTIALS = ((1.0, 1.0, 2.6), (2.0, 0.38, 4.5), (3.0, 0.16, 7.0), (5.4, 0.10, 16.0))
SOFT_START = 0.004
FADE_OUT = 0.9


@dataclass(frozen=True)
class Note:
    start: float  # seconds
    pitch: int  # semitones above the A of 440 Hz
    loudness: float
    side: float  # -1 left to 1 right


@functools.lru_cache(maxsize=None)
def pluck(pitch):
    frequency = 440 * 2 ** (pitch / 12)
    samples = array.array("d", bytes(8 * int(RATE * RING)))
    for multiple, loudness, fading in PARTIALS:
        step = math.tau * frequency * multiple / RATE
        for index in range(len(samples)):
            samples[index] += loudness * math.exp(-fading * index / RATE) * math.sin(step * index)
    for index in range(int(RATE * SOFT_START)):
        samples[index] *= index / (RATE * SOFT_START)
    for index in range(len(samples)):
        samples[index] *= 1 - index / len(samples)
    return samples


def bounces(balls, seconds):
    """A note whenever a ball touches the ground; the larger the ball, the lower its notes."""
    melodies = ((-19, -12), (-7, -5, -7, -3), (9, 12, 14, 9, 16), (0, 2, 5, 7, 5))
    notes = []
    for ball, melody in zip(balls, melodies):
        for bounce in range(math.ceil(seconds / ball.period)):
            start = bounce * ball.period
            beside, _, distance = ball.place(start)
            notes.append(Note(start, melody[bounce % len(melody)],
                              1 / (0.6 + distance / 8), 2 * beside / distance))
    return notes


def arpeggio():
    chords = ((-19, -12, -8, -3, 4, 9), (-22, -15, -10, -3, 2, 9),
              (-15, -8, -3, 0, 4, 9), (-17, -10, -5, 0, 7, 11))
    notes = []
    for bar, chord in enumerate(chords):
        for beat, pitch in enumerate(chord + chord[-2:1:-1][:2]):
            swell = 0.75 + 0.25 * math.sin(math.pi * beat / 7)
            notes.append(Note((bar * 8 + beat) * 0.27, pitch, swell, 0.5 * math.sin(beat)))
    return notes + [Note(32 * 0.27, pitch, 0.6, 0.0) for pitch in (-19, -12, -3, 4)]


def mixed(notes, seconds):
    """Left and right, as long as asked for, faded out at the end."""
    length = int(RATE * seconds)
    channels = [array.array("d", bytes(8 * length)) for _ in range(2)]
    for note in notes:
        first = int(RATE * note.start)
        for channel, share in zip(channels, (1 - note.side, 1 + note.side)):
            loudness = note.loudness * share / 2
            for index, sample in enumerate(pluck(note.pitch)[:length - first], first):
                channel[index] += loudness * sample
    fade = int(RATE * FADE_OUT)
    for channel in channels:
        for index in range(fade):
            channel[length - 1 - index] *= index / fade
    return channels


def write(path, notes, seconds):
    left, right = mixed(notes, seconds)
    gain = 32767 * PEAK / max(map(abs, left + right))
    samples = array.array("h", bytes(4 * len(left)))
    samples[0::2] = array.array("h", (round(gain * sample) for sample in left))
    samples[1::2] = array.array("h", (round(gain * sample) for sample in right))
    with wave.open(str(path), "wb") as output:
        output.setnchannels(2)
        output.setsampwidth(2)
        output.setframerate(RATE)
        output.writeframes(samples.tobytes())
