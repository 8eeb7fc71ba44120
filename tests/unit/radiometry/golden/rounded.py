"""Arithmetic that knows a value to 50 digits, and how far a computation in double precision may lie from it."""

from mpmath import exp, expm1, inf, log, log1p, mp, mpf, sqrt

mp.dps = 50

UNIT_ROUNDOFF = mpf(2) ** -53
SMALLEST = mpf(2) ** -1074


class Rounded:
    """A value, and a bound on the error of the same expression evaluated in double precision, step by step.

    Additions, multiplications, divisions and square roots are taken to be rounded correctly, exp and log to be within
    one unit in the last place. A double is exact: what it stands for is the number it holds, not the one it was
    written as.
    """

    def __init__(self, value, error=mpf(0)):
        self.value = mpf(value)
        self.error = error

    @staticmethod
    def of(other):
        return other if isinstance(other, Rounded) else Rounded(float(other))

    @staticmethod
    def _rounded(value, inherited):
        if inherited == 0 and mpf(float(value)) == value:
            return Rounded(value)
        return Rounded(value, inherited + UNIT_ROUNDOFF * (abs(value) + inherited) + SMALLEST)

    def __neg__(self):
        return Rounded(-self.value, self.error)

    def __add__(self, other):
        other = Rounded.of(other)
        return Rounded._rounded(self.value + other.value, self.error + other.error)

    def __sub__(self, other):
        return self + -Rounded.of(other)

    def __rsub__(self, other):
        return Rounded.of(other) - self

    def __mul__(self, other):
        other = Rounded.of(other)
        inherited = abs(self.value) * other.error + abs(other.value) * self.error + self.error * other.error
        return Rounded._rounded(self.value * other.value, inherited)

    __radd__ = __add__
    __rmul__ = __mul__

    def __truediv__(self, other):
        other = Rounded.of(other)
        value = self.value / other.value
        nearest_to_zero = abs(other.value) - other.error
        if nearest_to_zero <= 0:
            return Rounded(value, inf)
        return Rounded._rounded(value, (self.error + abs(value) * other.error) / nearest_to_zero)

    def __rtruediv__(self, other):
        return Rounded.of(other) / self

    def exp(self):
        value = exp(self.value)
        if self.value == 0 and self.error == 0:
            return Rounded(value)
        return Rounded(value, value * expm1(self.error) * (1 + 2 * UNIT_ROUNDOFF) + 2 * UNIT_ROUNDOFF * value + SMALLEST)

    def log(self):
        value = log(self.value)
        if self.error >= self.value:
            return Rounded(value, inf)
        inherited = -log1p(-self.error / self.value)
        return Rounded(value, inherited + 2 * UNIT_ROUNDOFF * (abs(value) + inherited) + SMALLEST)

    def sqrt(self):
        if self.value == 0 and self.error == 0:
            return self
        root = sqrt(self.value)
        if self.error >= self.value:
            return Rounded(root, inf)
        return Rounded._rounded(root, root - sqrt(self.value - self.error))
