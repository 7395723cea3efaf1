#!/usr/bin/env python3
"""Works out by itself what the main window and the chart must show, and compares.

    oracle.py APP_ANSWERS COUNT [SEED]

All motorcycles of the default file in both units, then COUNT commands, each after a change of some
fields, mistyped ones among them. Shares nothing with the program.
"""
import copy
import math
import os
import random
import re
import subprocess
import sys

RATIOS, SPEEDS, DRIVING, DRIVEN = range(30, 36), range(36, 42), range(18, 24), range(24, 30)
FIELDS = [1, 3, 5, 49, 50, 51, 53, 54, 55, 57, 60, *DRIVING, *DRIVEN, *RATIOS, *SPEEDS]
PAIRS = [(49, 50, 51), (53, 54, 55), *zip(DRIVING, DRIVEN, RATIOS)]  # driving, driven, ratio
MPH_SHOWN, MPH_TYPED = 0.621375, 1.609344

INCH = {}  # "3.25-18": millimetres
for row in """2.00 446 491 516 542 567 593/2.25 480 505 530 556 581 607/2.50 492 517 542 568 593 619
2.75 512 537 562 588 613 639/3.00 526 551 576 602 627 653/3.25 538 563 588 614 639 665
3.50 548 573 598 624 649 675/3.75 - - 610 636 661 687/4.00 - - 620 646 671 697
4.25 - - 632 658 683 709/4.50 - - 640 666 691 717/5.00 - - 666 692 717 743/3.60 - - - - 615 641
4.10 - - - - 641 667/4.60 - - 604 630 654 -/5.10 - - 625 651 676 -""".replace("\n", "/").split("/"):
    wide, *diameters = row.split()
    INCH |= {f"{wide}-{14 + i}": int(mm) for i, mm in enumerate(diameters) if mm != "-"}

DECIMAL = re.compile(
    r"[ \t\n\v\f\r]*([+-]?)(?:(0x(?:[0-9a-f]+\.?[0-9a-f]*|\.[0-9a-f]+)(?:p[+-]?\d+)?)"
    r"|((?:\d+\.?\d*|\.\d+)(?:e[+-]?\d+)?)|(inf)|(nan))", re.ASCII | re.IGNORECASE)
WHOLE = re.compile(r"[ \t]*([+-]?)(?:\$([0-9A-Fa-f]+)|%([01]+)|([0-9]+))", re.ASCII)


def decimal(text):
    found = DECIMAL.match("".join(c for c in text if ord(c) < 256)[:1023])
    if not found:
        return 0.0
    sign, hexadecimal, plain, inf, _ = found.groups()
    try:
        value = (float.fromhex(hexadecimal) if hexadecimal else float(plain) if plain
                 else math.inf if inf else math.nan)
    except OverflowError:
        value = math.inf
    return -value if sign == "-" else value


def wrapped(value):
    return (value + 2**63) % 2**64 - 2**63


def whole(text):
    found = WHOLE.match(text)
    if not found:
        return 0
    sign, *digits = found.groups()
    value = next(int(each, base) for each, base in zip(digits, (16, 2, 10)) if each)
    return wrapped(-value if sign == "-" else value)


def typed(text):
    return decimal(text.replace(",", "."))


def over(a, *divisors):
    """Divided by one after the other, as IEEE has it."""
    for b in divisors:
        if b != 0:
            a = a / b
        else:
            a = math.nan if a == 0 or math.isnan(a) else math.copysign(math.inf, a * math.copysign(1, b))
    return a


def fixed(value, decimals=0):
    if not math.isfinite(value):
        return "NaN" if math.isnan(value) else "+Infinity" if value > 0 else "-Infinity"
    return "%.*f" % (decimals, value or 0.0)


class Inputs:
    def __init__(self):
        self.around = self.primary = self.final = 0.0
        self.gears = [0.0] * 6

    def speed(self, ratio, per_hour):
        return over(per_hour * self.around, self.final * self.primary, ratio, 100.0, 1000.0)


class Window:
    """What must be seen."""

    def __init__(self):
        self.text = dict.fromkeys(FIELDS, "") | {57: "0", 60: "0"} | dict.fromkeys(SPEEDS, "----")
        self.percent_enabled, self.factor, self.heading = True, 1.0, "- "
        self.kept, self.top_gear = Inputs(), 0

    def shown(self):
        rest = ["Calc rpm"] * 6 + ["on" if self.percent_enabled else "off"]
        return [self.text[field] for field in FIELDS] + rest

    def read(self, into):
        width, percent = (self.text[field].replace(",", ".") for field in (1, 3))
        if whole(width) < 10:
            size = (width if "." in width else width + ".00") + "0000"
            size = size.encode("utf-16-le")[:8].decode("utf-16-le", "replace")  # 16-bit characters
            if width:
                self.text[1], self.percent_enabled = size, False
            diameter = INCH.get(size + "-" + self.text[5])
            into.around = diameter * math.pi / 10 if diameter else into.around
        else:
            rim_radius = decimal(self.text[5]) * 2.54 / 2
            into.around = (rim_radius + decimal(width) * decimal(percent) / 1000) * math.tau
        into.primary, into.final = typed(self.text[51]), typed(self.text[55])
        if not (into.around > 0 and into.primary > 0 and into.final > 0):
            return False
        into.gears = [typed(self.text[field]) for field in RATIOS]
        return any(ratio > 0 for ratio in into.gears)

    def press(self, number):
        """The command of a gadget. True when it calculated something."""
        now = Inputs()
        if number == 1:
            self.percent_enabled = "." not in self.text[1]
            self.text[3] = self.text[3] if self.percent_enabled else ""
        for driving, driven, ratio in PAIRS:
            if number in (driving, driven):
                counts = (float(whole(self.text[field])) for field in (driven, driving))
                self.text[ratio] = fixed(over(*counts), 4)
        if number in (11, 61) and self.read(now):
            per_hour = float(whole(self.text[60])) * 60
            for field, ratio in zip(SPEEDS, now.gears):
                speed = now.speed(ratio, per_hour) * self.factor
                self.text[field] = fixed(speed) if ratio > 0 else "----"
            return True
        if 42 <= number < 48 and self.read(now):
            ratio, speed = now.gears[number - 42], typed(self.text[number - 6])
            if ratio > 0 and speed > 0:
                self.text |= {field: "----" for field in SPEEDS if field != number - 6}
                speed *= 1 if self.factor == 1 else MPH_TYPED
                self.text[60] = fixed(over(speed, now.speed(ratio, 60)))
                return True
        return number in (1, *DRIVING, *DRIVEN)

    def chart_top(self):
        if not self.read(self.kept) or not self.read(Inputs()):
            return 0
        ratios = self.kept.gears + [self.kept.final]  # the last one stands at -1 as well
        for k in range(5, -2, -1):
            self.top_gear = k if ratios[k] != 0 else self.top_gear
            if self.top_gear != 0:
                break
        per_hour = float(wrapped(whole(self.text[57]) * 60))
        top = self.kept.speed(ratios[self.top_gear], per_hour)
        if not math.isfinite(top):  # the gear of an earlier chart
            top = max(self.kept.speed(ratio, per_hour) for ratio in ratios[:6] if ratio > 0)
        if not abs(top) < 1e6:
            return 0
        return int((round(round(top) * self.factor) + 10) / 10) * 10

    def choose(self, maker, model, width, percent, rim, primary, *gears_final_rpm):
        *gears, final, max_rpm = gears_final_rpm
        ratio = lambda value: ("%.10f" % decimal(value)).rstrip("0").rstrip(".")
        self.heading = f"{maker}- {model}"
        self.text |= {1: ratio(width), 3: str(whole(percent)), 5: str(whole(rim))}
        self.text |= {51: ratio(primary), 55: ratio(final)} | dict(zip(RATIOS, map(ratio, gears)))
        self.text |= {57: max_rpm, 60: max_rpm} | dict.fromkeys(SPEEDS, "----")


class Comparison:
    """What to do in the program, and what it must answer."""

    def __init__(self, seed):
        self.random, self.window = random.Random(seed), Window()
        self.deeds, self.expected = [], []
        self.texts = self.calculated = self.charts = 0

    def do(self, *deed, expect=None):
        self.deeds.append("\x1f".join(map(str, deed)))
        self.expected += [(len(self.deeds), expect)] if expect is not None else []

    def set(self, texts):
        self.window.text |= texts
        self.texts += len(texts)
        self.do("set", *(part for each in texts.items() for part in each))

    def set_unit(self, number):
        self.window.factor = MPH_SHOWN if number else 1.0
        self.do("unit", number)

    def press(self, number):
        self.calculated += self.window.press(number)
        is_button = number == 61 or 42 <= number < 48
        self.do("event", 3, number, 0 if is_button else 768, expect=self.window.shown())

    def chart(self, with_lines):
        """The chart, where it has a decent size, and three points of it."""
        before, now = copy.deepcopy(self.window), self.window
        top, max_rpm = now.chart_top(), whole(now.text[57])
        high, wide = top // 10 * 20, max_rpm // 250 * 20
        if not (0 < high < 800 and 0 < wide < 1500):
            self.window = before
            return
        self.charts += 1
        self.do("event", 3, 62, 0, expect=now.shown())
        ends = [round(now.kept.speed(ratio, max_rpm * 60.0) * now.factor) if ratio > 0 else None
                for ratio in now.kept.gears] if with_lines else [None] * 6
        self.do("chart", expect=(now.heading, wide, high, max_rpm, ends))
        for _ in range(3):
            x, y = self.random.randrange(wide + 80), self.random.randrange(high + 90)
            rpm, speed = int((x - 40) * 250 / 20), int((high - y + 40) / 2)
            shows = 0 <= rpm <= max_rpm and 0 <= speed <= top
            unit = "km/h" if now.factor == 1 else "mph"
            self.do("point", x, y, expect=f"{rpm} rpm  -  {speed} {unit}" if shows else "")
        self.do("close", expect=now.shown())

    def motorcycles(self, default_file):
        groups = re.findall(r"\[([^-\]]*)-([^\]]*)\]\n((?:.+\n)*)", default_file)
        assert len(groups) == 59
        self.set({1: "3.25"})
        self.press(1)  # no choice lets the percent height be entered again, only typing a width
        for item, (maker, model, lines) in enumerate(groups, 10):
            values = [line.partition("=")[2].strip() for line in lines.splitlines()]
            for unit in (0, 1):
                self.window.choose(maker.strip(), model.strip(), *values)
                self.do("event", 1, item, 0, expect=self.window.shown())
                self.set_unit(unit)
                for rpm in ("1000", "4321", values[-1]):
                    self.set({60: rpm})
                    self.press(61)
                for gear in range(6):
                    self.set({36 + gear: f"{23.4 + 20 * gear:.4g}".replace(".", ",")})
                    self.press(42 + gear)
                self.chart(True)

    def random_text(self, field):
        pick = self.random
        text = str(pick.randint(0, 60))
        if field in (51, 55, *RATIOS):
            text = "" if pick.random() < 0.1 else f"{pick.uniform(0.5, 4):.{pick.randint(0, 5)}f}"
        elif field in (1, 3, 5):
            text = {1: pick.choice(["180", "130", "10.5", "3", *INCH])[:5].split("-")[0],
                    3: str(pick.randint(0, 110)), 5: str(pick.randint(13, 20))}[field]
        elif field in (57, 60, *SPEEDS):
            text = str(pick.randint(0, 15000 if field in (57, 60) else 300))
        if pick.random() < 0.12:
            odd = ["", "1e308", "1e-320", "-inf", "NaN", "0x1.8p1", "$AafF", "-%101", "1e400", "-+3",
                   "9223372036854775808", "-9223372036854775808", " \t7", " " * 1023 + "7", "\n5", ".", "-0", "1,2,3"]
            text = pick.choice(odd) if pick.random() < 0.3 else text
            for _ in range(pick.randint(0, 2)):
                place = pick.randint(0, len(text))
                wrong = pick.choice("0123456789.,+-eExXpPaAfFiInN$% \t\u00ff\u20ac\u0663\U0001f3cd")
                text = text[:place] + wrong + text[place + pick.randint(0, 1):]
        return text.replace("\n", "")

    def random_commands(self, count):
        commands = [61] * 8 + [*range(42, 48), 1, 49, 50, 53, 54, *DRIVING, *DRIVEN]
        for _ in range(count):
            fields = self.random.sample(FIELDS, self.random.randint(1, 8))
            self.set({field: self.random_text(field) for field in fields})
            if self.random.random() < 0.1:
                self.set_unit(self.random.randint(0, 1))
                self.press(11)
            self.press(self.random.choice(commands))
            if self.random.random() < 0.001:
                self.chart(False)


def is_equal(answer, expected):
    if isinstance(expected, str):
        return answer == expected
    parts = answer.split("\x1f")
    if isinstance(expected, list):
        return [parts[field] for field in [*FIELDS, *range(42, 48), -1]] == expected
    heading, wide, high, max_rpm, speeds = expected
    seen, seen_wide, seen_high, *ends = parts
    right = 40 + max_rpm * 2 / 25
    for end, speed in zip(ends, speeds):
        if speed is not None:
            x, y = map(float, end.split())
            line_y = high + 40 - 2 * speed * (x - 40) / (right - 40)
            if abs(x - right) > 1 or abs(y - line_y) > 0.7:
                return False
    return (seen, int(seen_wide), int(seen_high)) == (heading, wide + 80, high + 90)


def answers(program, deeds):
    done = subprocess.run([program, "--gtest_brief=1"], input="\n".join([*deeds, ""]).encode(),
                          stdout=subprocess.PIPE, check=True, timeout=250,
                          env=os.environ | {"QT_LOGGING_RULES": "*=false"})
    lines = done.stdout.decode().split("\n")
    return [line[2:].rstrip("\r") for line in lines if line.startswith("= ")]


def main(program, count, seed="1"):
    compared = Comparison(int(seed))
    compared.motorcycles("\n".join([*answers(program, []), ""]))
    compared.random_commands(int(count))
    seen = answers(program, compared.deeds)[-len(compared.deeds):]
    assert len(seen) == len(compared.deeds), f"{len(seen)} of {len(compared.deeds)} answers"
    wrong = [(number, expected, seen[number - 1]) for number, expected in compared.expected
             if not is_equal(seen[number - 1], expected)]
    for number, expected, answer in wrong[:5]:
        print("after", *map(repr, compared.deeds[max(0, number - 6):number]), sep="\n    ")
        print(f"  expected {expected!r}\n  answered {answer!r}")
    print(f"{compared.texts} texts, {len(compared.expected)} answers, {compared.calculated} of commands that "
          f"calculated, {compared.charts} charts: {len(wrong)} wrong")
    sys.exit(1 if wrong else 0)


main(*sys.argv[1:])
