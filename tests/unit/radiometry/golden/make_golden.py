#!/usr/bin/env python3
"""Writes the tables beside it, which README.md describes. Every run writes the same bytes."""

import math
import random
import struct
from dataclasses import astuple, fields
from pathlib import Path

from mpmath import mp, mpf

import model
from model import Absorption, Gain, Scene

HERE = Path(__file__).parent
# Of the generator's methods only random() is sure to give the same numbers in every version of Python.
draw = random.Random(20240229).random


def between(low, high):
    return low + (high - low) * draw()


def rounded_to_float(value):
    return struct.unpack("f", struct.pack("f", value))[0]


def names(table):
    return [field.name for field in fields(table)]


def expected(result):
    """Two cells: the value, and the error that double precision may have, rounded up."""
    if result is None:
        return ["nan", "nan"]
    if not mp.isfinite(result.error):
        raise ArithmeticError("no bound")
    return [mp.nstr(result.value, 25), mp.nstr(result.error * mpf("1.01"), 3)]


def write(name, header, rows):
    lines = [",".join(header)]
    lines += [",".join(cell if isinstance(cell, str) else repr(cell) for cell in row) for row in rows]
    (HERE / name).write_text("\n".join(lines) + "\n", newline="\n")


def gain_rows():
    return [list(astuple(gain)) for gain in model.GAINS]


def transmission_rows():
    places = [(k, h, d) for k in (233.15, 273.15, 293.15, 323.15, 353.15) for h in (0.0, 0.05, 0.5, 1.0)
              for d in (0.0, 0.3, 1.0, 25.0, 1000.0)]
    places += [(between(230, 350), draw(), 10 ** between(-1, 3.5)) for _ in range(100)]
    places += [(293.15, -0.1, 1.0), (293.15, 0.5, -1.0)]
    cases = [(*place, Absorption()) for place in places]
    for X in (0.0, 0.5, 1.9, -0.3):
        cases += [(between(250, 320), draw(), 10 ** between(-1, 3), Absorption(X=X)) for _ in range(10)]
    cases += [(between(250, 320), draw(), 10 ** between(-1, 3),
               Absorption(draw(), between(0, 0.02), between(0, 0.03), between(-0.01, 0.01), between(-0.01, 0.01)))
              for _ in range(30)]
    for kelvin, humidity, distance_m, absorption in cases:
        water = model.water_vapour(kelvin, humidity)
        tau = model.transmission(kelvin, humidity, distance_m, absorption)
        yield [kelvin, humidity, distance_m, *astuple(absorption), *expected(water), *expected(tau)]


def black_body_rows():
    kelvins = [100.0, 233.15, 273.15, 293.15, 294.15, 300.0, 1000.0, 1773.15, 5000.0, 1e6]
    kelvins += [between(200, 2000) for _ in range(40)]
    for gain in (model.LOW, model.MIDDLE):
        for kelvin in kelvins:
            yield [gain.name, kelvin, *expected(model.black_body(gain, kelvin))]


SCENES = [
    Scene(),
    Scene(emissivity=0.5),
    Scene(emissivity=1.0, distance_m=0.0),  # nothing but the gain: the signal can be zero exactly
    Scene(reflected_kelvin=373.15, emissivity=0.8),
    Scene(reflected_kelvin=1000.0, emissivity=0.6),  # the background outshines the object: negative signals
    Scene(atmospheric_kelvin=253.15, reflected_kelvin=250.0, distance_m=100.0, humidity=0.9),
    Scene(atmospheric_kelvin=323.15, distance_m=1000.0, humidity=1.0),  # a transmission well above 1
    Scene(distance_m=5000.0, humidity=0.0),
    Scene(optics_transmission=0.8),
    Scene(emissivity=0.7, reflected_kelvin=310.5, atmospheric_kelvin=301.25, distance_m=12.5, humidity=0.35,
          optics_transmission=0.93),
    Scene(emissivity=0.98, reflected_kelvin=77.0, distance_m=0.25, humidity=0.1),
    Scene(between(0.5, 1), between(250, 400), between(250, 330), between(0, 50), draw(), between(0.5, 1)),
]


def scenes_by_gain():
    yield from ((gain, scene) for gain in (model.LOW, model.MIDDLE) for scene in SCENES)
    yield model.INITIAL, SCENES[0]


def constants_rows():
    for gain, scene in scenes_by_gain():
        cells = [cell for constant in model.constants(gain, scene) for cell in expected(constant)]
        yield [gain.name, *astuple(scene), *cells]


def raws(gain):
    offset = int(gain.O)
    chosen = {0, 1, 2, 3000, 5000, 7315, 16383, 16384, 32767, 32768, 65534, 65535, offset, offset + 1, offset + 2}
    chosen |= {max(0, offset - 1)}
    while len(chosen) < 38:
        chosen.add(int(65536 * draw()))
    while len(chosen) < 60:
        chosen.add(int(65536 ** between(0.3, 1)))
    return sorted(chosen)


def temperature_rows():
    for gain, scene in scenes_by_gain():
        derived = model.constants(gain, scene)
        for raw in raws(gain):
            signal = model.object_signal(gain, scene, raw, derived)
            try:
                celsius = model.temperature(gain, signal)
            except ArithmeticError:
                continue
            yield [gain.name, *astuple(scene), raw, *expected(signal), *expected(celsius)]


def correction_sets():
    """Coefficients and a switch-over value: those of lenses, which are floats on their way here, and odd ones."""
    for _ in range(10):
        yield [between(-3, 3), between(-0.03, 0.03), between(-2e-4, 2e-4), between(-5, 5), between(-0.03, 0.03)], \
            between(20, 150)
    for _ in range(8):
        yield [between(-3, 3), between(-0.03, 0.03), between(-2e-4, 2e-4), between(-4e-7, 4e-7),
               between(-5e-10, 5e-10)], between(20, 300)
    yield [0.0] * 5, 0.0
    yield [0.0, -1.0, 0.0, 0.0, -1.0], 30.0  # cancels what it corrects
    yield [1e6, -1e3, 1e-3, 1e9, 1e-12], -1e9
    yield [1.5, 0.25, 0.125, -2.5, 0.5], math.nan  # no temperature is below it
    yield [1.5, 0.25, 0.125, -2.5, 0.5], math.inf
    yield [-273.15, 1e-20, 1e-30, 273.15, 1e-20], 36.6


def correction_rows():
    for coefficients, slope in correction_sets():
        c = [rounded_to_float(value) for value in coefficients]
        temperatures = [-40.0, 550.0, between(-40, 150), between(0, 550)]
        if math.isfinite(slope):
            temperatures += [slope, math.nextafter(slope, -math.inf), math.nextafter(slope, math.inf)]
        for mode in (0, 1, 2):
            for slopes_valid in (0, 1):
                for t in temperatures:
                    corrected = model.correct(mode, slopes_valid, c, slope, t)
                    yield [mode, slopes_valid, *c, slope, t, *expected(corrected)]
    for mode in (3, 7):
        yield [mode, 1, 1.5, 0.25, 0.125, -2.5, 0.5, 30.0, 21.5, *expected(model.correct(mode, 1, None, 30.0, 21.5))]


def linear_rows():
    chosen = {0, 1, 25, 682, 683, 6828, 6829, 7315, 20578, 32767, 32768, 65535}
    while len(chosen) < 100:
        chosen.add(int(65536 * draw()))
    for raw in sorted(chosen):
        yield [raw, 1, raw / 25.0 - 273.15]
        yield [raw, 0, (raw * 10.0) / 25.0 - 273.15]


# Undefined or decided by an infinity, so no arithmetic tells the result: kelvin, K1, K2 at the low gain, raw.
SPECIAL_RAWS = [
    (300.0, 0.0, 0.0, 2**32 - 1),  # a positive number over zero
    (300.0, 0.0, -1e9, 0),  # a negative one
    (300.0, -0.0, 0.0, 0),
    (0.0, 0.0, 342.0, 0),  # zero over zero
    (0.0, 1.0, 1342.0, 1000),  # exp(infinity): no signal but the offset's
    (-0.0, 1.0, 0.0, 0),  # exp(-infinity): the signal is -R / F
    (math.nan, 1.0, 0.0, 0),
    (300.0, math.nan, 0.0, 0),
    (300.0, 1.0, math.inf, 2**32 - 1),
    (300.0, 1.0, -math.inf, 0),
    (300.0, math.inf, 0.0, 0),
    (math.inf, 1.0, 0.0, 2**32 - 1),  # exp(0) - F is zero
]


def temp_to_raw_rows():
    def row(gain, kelvin, K1, K2, raw):
        return [kelvin, gain.R, gain.B, gain.F, gain.O, K1, K2, raw]

    for kelvin, K1, K2, raw in SPECIAL_RAWS:
        yield row(model.LOW, kelvin, K1, K2, raw)
    scales = [(1.0, 0.0), (22.1396484, 342.0), (3.0694580078125, 754.0), (-2.0, 100.0), (0.0001, 5.5), (1e-9, 0.0),
              (-0.5, -5e5), (0.25, -50.0), (1e12, 0.0)]
    kelvins = [1.0, 100.0, 233.15, 273.15, 293.15, 823.15, 1773.15, 1e5, -300.0]
    for gain in (model.LOW, model.MIDDLE):
        for K1, K2 in scales:
            for kelvin in kelvins + [between(200, 2000) for _ in range(11)]:
                try:
                    yield row(gain, kelvin, K1, K2, model.raw_of(kelvin, gain.R, gain.B, gain.F, gain.O, K1, K2))
                except ArithmeticError:
                    continue


def main():
    signal = ["celsius", "celsius_error"]
    write("gains.csv", names(Gain), gain_rows())
    write("transmission.csv", ["atmospheric_kelvin", "humidity", "distance_m", *names(Absorption), "water", "water_error",
                               "tau", "tau_error"], transmission_rows())
    write("black_body.csv", ["gain", "kelvin", "signal", "signal_error"], black_body_rows())
    write("constants.csv", ["gain", *names(Scene), "tau", "tau_error", "atmospheric_signal", "atmospheric_signal_error",
                            "background_signal", "background_signal_error"], constants_rows())
    write("temperature.csv", ["gain", *names(Scene), "raw", "object_signal", "object_signal_error", *signal],
          temperature_rows())
    write("correction.csv", ["range", "slopes_valid", "c0", "c1", "c2", "c3", "c4", "slope", "uncorrected_celsius",
                             *signal], correction_rows())
    write("linear.csv", ["raw", "high_resolution", "celsius"], linear_rows())
    write("temp_to_raw.csv", ["kelvin", "R", "B", "F", "O", "K1", "K2", "raw"], temp_to_raw_rows())


if __name__ == "__main__":
    main()
