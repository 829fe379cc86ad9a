#!/usr/bin/env python3
"""Reference pressures of fifty fills, and what fifty rounded fills give, for the tests of the gas mixer.

Reckoned apart from the program, in another language and by other ways: densities and amounts by bisection, and the
derivative of the Helmholtz energy by a complex step instead of term by term.

Equation: GERG-2008 for oxygen, helium and nitrogen. O. Kunz and W. Wagner, The GERG-2008 Wide-Range Equation of State
for Natural Gases and Other Mixtures, J. Chem. Eng. Data 57 (2012) 3032-3091.

    python3 reference_fills.py > reference_fills.json       (standard library alone; some seconds)
    python3 reference_fills.py --points                     holds the equation against gerg_2008_points.json
"""
import cmath
import json
import math
import os
import sys

R = 8.314472  # J / (mol K)

# Critical temperature (K), critical density (mol/l), terms n, d, t, c of the residual Helmholtz energy.
GASES = {
    "O2": (154.595, 13.63, [
        (0.88878286369701, 1, 0.25, 0),
        (-2.4879433312148, 1, 1.125, 0),
        (0.59750190775886, 1, 1.5, 0),
        (0.0096501817061881, 2, 1.375, 0),
        (0.07197042871277, 3, 0.25, 0),
        (0.00022337443000195, 7, 0.875, 0),
        (0.18558686391474, 2, 0.625, 1),
        (-0.03812936803576, 5, 1.75, 1),
        (-0.15352245383006, 1, 3.625, 2),
        (-0.026726814910919, 4, 3.625, 2),
        (-0.025675298677127, 3, 14.5, 3),
        (0.0095714302123668, 4, 12, 3),
    ]),
    "He": (5.1953, 17.399, [
        (-0.45579024006737, 1, 0, 0),
        (1.2516390754925, 1, 0.125, 0),
        (-1.5438231650621, 1, 0.75, 0),
        (0.020467489707221, 4, 1, 0),
        (-0.34476212380781, 1, 0.75, 1),
        (-0.020858459512787, 3, 2.625, 1),
        (0.016227414711778, 5, 0.125, 1),
        (-0.057471818200892, 5, 1.25, 1),
        (0.019462416430715, 5, 2, 1),
        (-0.03329568012302, 2, 1, 2),
        (-0.010863577372367, 1, 4.5, 3),
        (-0.022173365245954, 2, 5, 3),
    ]),
    "N2": (126.192, 11.1839, [
        (0.59889711801201, 1, 0.125, 0),
        (-1.6941557480731, 1, 1.125, 0),
        (0.24579736191718, 2, 0.375, 0),
        (-0.23722456755175, 2, 1.125, 0),
        (0.017954918715141, 4, 0.625, 0),
        (0.014592875720215, 4, 1.5, 0),
        (0.10008065936206, 1, 0.625, 1),
        (0.73157115385532, 1, 2.625, 1),
        (-0.88372272336366, 1, 2.75, 1),
        (0.31887660246708, 2, 2.125, 1),
        (0.20766491728799, 3, 2, 1),
        (-0.019379315454158, 6, 1.75, 1),
        (-0.16936641554983, 2, 4.5, 2),
        (0.13546846041701, 3, 4.75, 2),
        (-0.033066712095307, 3, 5, 2),
        (-0.060690817018557, 4, 4, 2),
        (0.012797548292871, 4, 4.5, 2),
        (0.0058743664107299, 2, 7.5, 3),
        (-0.018451951971969, 3, 14, 3),
        (0.0047226622042472, 4, 11.5, 3),
        (-0.0052024079680599, 5, 26, 6),
        (0.043563505956635, 6, 28, 6),
        (-0.036251690750939, 6, 30, 6),
        (-0.0028974026866543, 7, 16, 6),
    ]),
}
# beta_v, gamma_v, beta_T, gamma_T
PAIRS = {
    ("N2", "O2"): (0.99952177, 0.997082328, 0.997190589, 0.995157044),
    ("N2", "He"): (0.969501055, 0.932629867, 0.692868765, 1.47183158),
    ("O2", "He"): (1, 1, 1, 1),
}


def reducing(x):
    volume = sum(x[g] ** 2 / GASES[g][1] for g in x)
    temperature = sum(x[g] ** 2 * GASES[g][0] for g in x)
    for (i, j), (bv, gv, bt, gt) in PAIRS.items():
        a, b = x[i], x[j]
        if a == 0 or b == 0:
            continue
        v = (GASES[i][1] ** (-1 / 3) + GASES[j][1] ** (-1 / 3)) ** 3 / 8
        t = math.sqrt(GASES[i][0] * GASES[j][0])
        volume += 2 * a * b * bv * gv * (a + b) / (bv ** 2 * a + b) * v
        temperature += 2 * a * b * bt * gt * (a + b) / (bt ** 2 * a + b) * t
    return 1 / volume, temperature


def residual(x, delta, tau):
    """alpha_r of the mix; delta may be complex."""
    total = 0
    for gas, share in x.items():
        if share == 0:
            continue
        for n, d, t, c in GASES[gas][2]:
            damping = cmath.exp(-delta ** c) if c else 1
            total += share * n * delta ** d * tau ** t * damping
    return total


def compressibility(x, density, kelvin):
    reduced_density, reduced_temperature = reducing(x)
    delta = density / reduced_density
    step = 1e-30
    slope = residual(x, complex(delta, step), reduced_temperature / kelvin).imag / step
    return 1 + delta * slope


def pressure(contents, kelvin):
    """bar, of mol/l of each gas"""
    density = sum(contents.values())
    if density == 0:
        return 0.0
    x = {g: contents[g] / density for g in contents}
    return density * R * kelvin * compressibility(x, density, kelvin) / 100


def bisect(rising, low, high):
    for _ in range(80):
        middle = (low + high) / 2
        if rising(middle) < 0:
            low = middle
        else:
            high = middle
    return (low + high) / 2


def mix(o2, he):
    return {"O2": o2 / 100, "He": he / 100, "N2": (100 - o2 - he) / 100}


def scaled(x, amount):
    return {g: x[g] * amount for g in x}


def added(contents, gas, amount):
    return {g: contents[g] + amount * gas[g] for g in contents}


def contents_at(x, bar, kelvin):
    if bar == 0:
        return scaled(x, 0)
    return scaled(x, bisect(lambda n: pressure(scaled(x, n), kelvin) - bar, 0, 25))


def until(contents, gas, bar, kelvin):
    return added(contents, gas, bisect(lambda n: pressure(added(contents, gas, n), kelvin) - bar, 0, 25))


HELIUM, OXYGEN = mix(0, 100), mix(100, 0)


def reckon(have, start, want, end, top, celsius, imperial):
    """The fill with its steps, exact; and what the steps give when they are rounded to a gauge."""
    kelvin = celsius + 273.15
    bar = 1.01325 / 14.7 if imperial else 1
    mark = 10 if imperial else 1
    now = contents_at(mix(*have), start * bar, kelvin)
    then = contents_at(mix(*want), end * bar, kelvin)
    gas_on_top = mix(*top)
    amount = (then["N2"] - now["N2"]) / gas_on_top["N2"]
    amounts = [(HELIUM, then["He"] - now["He"] - amount * gas_on_top["He"]),
               (OXYGEN, then["O2"] - now["O2"] - amount * gas_on_top["O2"]), (gas_on_top, amount)]
    steps = []
    contents = rounded = now
    before = last = start
    for name, (gas, moles) in zip(("helium", "oxygen", "top"), amounts):
        if abs(moles) < 1e-9:
            continue
        assert moles > 0, (have, start, want, end, name, moles)
        contents = added(contents, gas, moles)
        to = pressure(contents, kelvin) / bar
        steps.append([name, round(to, 5)])
        marked = round(to / mark) * mark
        worth_it = to - before >= mark / 2 and marked > last  # less than half a mark is left out
        before = to
        if worth_it:
            rounded = until(rounded, gas, marked * bar, kelvin)
            last = marked
    total = sum(rounded.values())
    return {"have": have, "start": start, "want": want, "end": end, "top": top, "celsius": celsius,
            "imperial": imperial, "steps": steps,
            "rounded_gives": [round(100 * rounded[g] / total, 4) for g in ("O2", "He")]}


AIR, EAN32 = (21, 0), (32, 0)
EMPTY = [(AIR, 1, want, end, AIR, 20, False) for want, end in [
    ((32, 0), 200), ((36, 0), 232), ((40, 0), 300), ((50, 0), 200), ((80, 0), 200), ((21, 35), 220), ((18, 45), 200),
    ((18, 45), 232), ((18, 45), 300), ((15, 55), 200), ((12, 60), 230), ((10, 70), 200), ((10, 70), 300),
    ((25, 25), 180), ((30, 30), 210), ((21, 21), 232), ((16, 40), 300), ((50, 20), 200), ((8, 75), 270),
    ((28, 0), 100)]]
PART_FULL = [
    ((32, 0), 60, (50, 0), 200, AIR, 20, False), ((32, 0), 60, (21, 35), 200, AIR, 20, False),
    ((18, 45), 70, (21, 35), 220, AIR, 20, False), ((18, 45), 110, (18, 45), 232, AIR, 20, False),
    ((20.3, 33.1), 95, (21, 35), 220, AIR, 20, False), ((10, 70), 40, (15, 55), 232, AIR, 20, False),
    ((21.4, 31.9), 50, (18, 45), 300, AIR, 20, False), ((36.2, 0), 84, (32, 0), 232, AIR, 20, False),
    ((12.5, 58), 120, (15, 50), 250, AIR, 20, False), ((21, 0), 0, (18, 45), 232, AIR, 20, False)]
BANKED = [
    ((32, 0), 70, (32, 0), 210, EAN32, 20, False), ((21, 35), 80, (21, 35), 220, EAN32, 20, False),
    (AIR, 1, (25, 25), 200, EAN32, 20, False), (AIR, 1, (30, 30), 232, (36, 0), 20, False),
    ((18, 45), 60, (18, 45), 232, (28, 0), 20, False), ((15, 55), 90, (15, 55), 200, (18, 45), 20, False),
    ((17.5, 41), 100, (18, 45), 220, (20, 30), 20, False), (AIR, 1, (40, 0), 200, EAN32, 20, False)]
WARM_AND_COLD = [
    (AIR, 1, (18, 45), 232, AIR, 5, False), (AIR, 1, (21, 35), 220, AIR, 35, False),
    ((18, 45), 60, (15, 55), 300, AIR, 10, False), (AIR, 1, (32, 0), 200, AIR, 0, False),
    (AIR, 1, (10, 70), 232, AIR, 45, False), ((21, 35), 70, (21, 35), 200, EAN32, 28, False)]
IMPERIAL = [
    (AIR, 14.7, (32, 0), 3000, AIR, 20, True), (AIR, 14.7, (18, 45), 3442, AIR, 20, True),
    ((21, 35), 1100, (18, 45), 3600, AIR, 20, True), ((32, 0), 900, (32, 0), 3000, EAN32, 20, True),
    (AIR, 14.7, (10, 70), 2640, AIR, 30, True), ((18.4, 43), 800, (21, 35), 3500, AIR, 20, True)]
FILLS = EMPTY + PART_FULL + BANKED + WARM_AND_COLD + IMPERIAL


def hold_against_points():
    here = os.path.dirname(os.path.abspath(__file__))
    with open(os.path.join(here, "gerg_2008_points.json"), encoding="utf-8") as file:
        points = json.load(file)["points"]
    worst = 0.0
    for o2, he, n2, kelvin, bar, density, _ in points:
        worst = max(worst, abs(pressure({"O2": o2 * density, "He": he * density, "N2": n2 * density}, kelvin) / bar - 1))
    print(f"{len(points)} points, the pressure within {worst:.1e}")


if "--points" in sys.argv:
    hold_against_points()
else:
    assert len(FILLS) == 50
    print('{\n "fills": [\n' + ",\n".join("  " + json.dumps(reckon(*fill)) for fill in FILLS) + "\n ]\n}")
