"""What the correlations of the tables say at a temperature, each from its row."""
import math

from tables import HEAT_CAPACITY, number

R = 8.31446261815324  # J/mol/K, CODATA 2018 (exact)


def powers(row, q, first):
    return sum(number(row[f"n{k}"]) * q**number(row[f"t{k}"]) for k in range(first, 7) if row[f"n{k}"])


def vapor_pressure(row, T):
    """Pa"""
    T0 = number(row["T0_K"])
    return number(row["p0_Pa"]) * math.exp(T0 / T * powers(row, max(1.0 - T / T0, 0.0), 1))


def liquid_density(row, T):
    """mol/m3"""
    q = max(1.0 - T / number(row["T0_K"]), 0.0)
    first, factor, exponent = (number(row[name]) for name in ("A_or_r0", "B_or_n1", "D_or_t1"))
    if row["form"] == "rackett":
        return 1e3 * first / factor ** (1.0 + q**exponent)
    return 1e3 * first * (1.0 + factor * q**exponent + powers(row, q, 2))


def heat_capacity(row, T):
    """J/mol/K"""
    factors = [number(row[name]) for name in HEAT_CAPACITY]
    ratios = [float(name[1:]) / T for name in HEAT_CAPACITY[1:]]
    return R * (factors[0] + sum(factor * (x / (2.0 * math.sinh(0.5 * x)))**2 for factor, x in zip(factors[1:], ratios)))


def published_heat_capacity(row, T):
    """J/mol/K"""
    a = [float(text) for text in row["coefficients"].split()]
    if row["form"] == "NASA7":
        first = 0 if T <= 1000.0 else 7
        return R * sum(a[first + k] * T**k for k in range(5))
    result = a[0] + a[1] / T**2 * math.exp(-a[2] / T)
    if T > a[7]:
        y = (T - a[7]) / (T + a[6])
        result += a[3] * y**2 + (a[4] - a[5] / (T - a[7])**2) * y**8
    return R * result


def transport(row, T):
    """Units of the SI"""
    c = [float(text) for text in row["coefficients"].split()] + 7 * [0.0]
    if row["form"] == "polynomial":
        return sum(c[k] * T**k for k in range(7))
    if row["form"] == "exponential":
        return math.exp(c[0] + c[1] / T + c[2] * math.log(T) + c[3] * T**c[4])
    if row["form"] == "sutherland":
        return c[0] * T**c[1] / (1.0 + c[2] / T + c[3] / T**2)
    if row["form"] == "shifted_exponential":
        return c[0] + math.exp(c[1] / T + c[2] + c[3] * T + c[4] * T**2)
    q = max(1.0 - T / c[6], 0.0)
    return sum(c[k] * q**c[k + 1] for k in (0, 2, 4) if c[k])
