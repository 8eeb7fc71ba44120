"""The radiometric model in 50 digits: what a temperature is, written from its formulas and apart from the library."""

from dataclasses import dataclass

from mpmath import floor, mpf

from rounded import Rounded

ZERO_CELSIUS_KELVIN = 273.15


@dataclass(frozen=True)
class Gain:
    name: str
    R: float
    B: float
    F: float
    O: float
    J1: float
    RThg: float


LOW = Gain("low", 366544.0, 1428.0, 1.0, 342.0, 22.1396484, 16556.0)
MIDDLE = Gain("middle", 56829.0, 1470.0, 1.0, 754.0, 3.0694580078125, 18514.0)
# What holds until a range was set: the low gain without its offset.
INITIAL = Gain("initial", 366544.0, 1428.0, 1.0, 0.0, 22.1396484, 16556.0)
GAINS = (LOW, MIDDLE, INITIAL)


@dataclass(frozen=True)
class Absorption:
    X: float = 1.0
    Alpha1: float = 0.006569
    Alpha2: float = 0.01262
    Beta1: float = -0.002276
    Beta2: float = -0.00667


@dataclass(frozen=True)
class Scene:
    emissivity: float = 0.95
    reflected_kelvin: float = 293.15
    atmospheric_kelvin: float = 293.15
    distance_m: float = 1.0
    humidity: float = 0.5
    optics_transmission: float = 1.0


def water_vapour(atmospheric_kelvin, humidity):
    t = Rounded.of(atmospheric_kelvin) - ZERO_CELSIUS_KELVIN
    exponent = 1.5587 + 0.06939 * t + (-0.00027816 * t) * t + (6.8455e-07 * (t * t)) * t
    return humidity * exponent.exp()


def transmission(atmospheric_kelvin, humidity, distance_m, absorption=Absorption()):
    """Of the atmosphere; None where a square root has no real value."""
    if humidity < 0 or distance_m < 0:
        return None
    a = absorption
    s = water_vapour(atmospheric_kelvin, humidity).sqrt()
    d = Rounded.of(distance_m).sqrt()
    X = Rounded.of(a.X)
    return X * (-d * (a.Alpha1 + a.Beta1 * s)).exp() + (1.0 - X) * (-d * (a.Alpha2 + a.Beta2 * s)).exp()


def black_body(gain, kelvin):
    return gain.RThg / ((Rounded.of(gain.B) / kelvin).exp() - gain.F)


def constants(gain, scene):
    """Transmission of the atmosphere, signal of the atmosphere, signal of the background."""
    return (
        transmission(scene.atmospheric_kelvin, scene.humidity, scene.distance_m),
        black_body(gain, scene.atmospheric_kelvin),
        black_body(gain, scene.reflected_kelvin),
    )


def object_signal(gain, scene, raw, derived):
    tau, atmosphere, background = derived
    emissivity = Rounded.of(scene.emissivity)
    optics = Rounded.of(scene.optics_transmission)
    measured = (Rounded.of(raw) - gain.O) / gain.J1
    rest = measured - tau * (1.0 - emissivity * optics) * background - (1.0 - tau) * atmosphere
    return rest / (emissivity * tau * optics)


def temperature(gain, signal):
    """In degrees Celsius; None where the logarithm has no real value. Raises where double precision cannot decide."""
    if signal.value == 0 and signal.error == 0:
        return Rounded(-mpf(ZERO_CELSIUS_KELVIN))  # the logarithm of infinity, and the constant over it
    if abs(signal.value) <= signal.error:
        raise ArithmeticError("the signal's sign is lost in rounding")
    argument = gain.RThg / signal + gain.F
    if abs(argument.value) <= argument.error:
        raise ArithmeticError("the logarithm's argument is lost in rounding")
    if argument.value < 0:
        return None
    return gain.B / argument.log() - ZERO_CELSIUS_KELVIN


def correct(mode, slopes_valid, c, slope, t):
    """The correction of a lens at one temperature of the core. `t` must not be NaN, `slope` may be."""
    T = Rounded.of(t)
    if mode not in (0, 1, 2):
        return T
    if mode == 2 or (mode == 1 and not slopes_valid):
        return T + (c[0] + c[1] * T + c[2] * (T * T) + c[3] * (T * T * T) + c[4] * (T * T * T * T))
    upper = slopes_valid and not t < slope
    return T + (c[3] + c[4] * T) if upper else T + (c[0] + c[1] * T)


def truncated(value):
    """As an unsigned number of 32 bits, saturating."""
    return min(max(0, int(floor(value))), 2**32 - 1)


def raw_of(kelvin, R, B, F, O, K1, K2):
    """Raises where the last step of double precision decides which number it is."""
    signal = Rounded.of(R) / ((Rounded.of(B) / kelvin).exp() - F)
    value = (signal + (Rounded.of(K2) - O)) / K1
    lowest, highest = truncated(value.value - value.error), truncated(value.value + value.error)
    if lowest != highest:
        raise ArithmeticError("between two numbers")
    return lowest
