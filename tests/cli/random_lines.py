"""Random catalogues: mostly lines as a controller sends them, now and then faulty ones.

Every function draws from the random.Random it is given, so a seed gives the same catalogue again.
"""

import calendar
import datetime

from catalogue_rules import (DAY_KEYS, LINES, ONE_DAY, SPECIAL_DAYS, WEEKDAYS, block_of, date_text,
                             is_plt, pad_or_cut)

VALUES = "0 1 1 21 20.5 17,25 -5 0.1 1E3 999999 .5 +3 x".split()
LONG_VALUES = "1234567 12345678 -12345.678 0.00012345 3.1415926 1E12".split()
OTHER_NAMES = ["OTHER", "AHU", "ahu1", "AHU11", ""]
ODD_NUMBERS = ["", "0", "abc", "12.5", "1E3", "99999", "1234567"]
BAD_DAYS = ("XX||mo|SD0|SD8|SD|M|MO..|MO..XX|FR..MO|SD3..SD1|SU..SD1|SD1..MO|SD1..SD9|MOTU|MO TU|"
            "TU-WE|MO..FR,SU|MO .. FR|SD1..SD3 SU|MO..FR *|SU*").split("|")
BAD_TIMES = ("|6:30|06:5|xx:yy|24:30..25:00|99:99|06:00..|06:00..1|06:00   18:00|-6:00|"
             "06.30..07.45").split("|")
BAD_START_TIMES = ["25:70", "xx:30", "6:30 ", "     "]
BAD_DAY_TYPES = "SD0|SD8||XX|sd1|SD|MOX|MO X|SD1X| TU ".split("|")
BAD_MONTHS = ["XXX", "jan", "   "]
BAD_DATES = ("00-JAN-26 32-JAN-26 31-APR-26 29-FEB-27 24-MAJ-26 24-dec-26 24-DEC-26..23-DEC-26 "
             "24-DEC-26.. 24-DEC-26..32-DEC-26 24-DEC-26..01-MAJ-27 24/DEC/26 2-DEC-26 DEC").split()
BAD_DATES_NEW = [text.replace("-2", "-202") for text in BAD_DATES] + (
    "24-DEC-1993 24-DEC-9999 24-DEC-26 24-DEC- 31-DEC-2026..01-JAN-1990").split()
BAD_DATES_OLD = BAD_DATES + ("24-DEC-93 24-DEC-94 24-DEC-2026 24-DEC- 24-DEC--1 "
                             "31-DEC-93..01-JAN-94 20-DEC-99..02-JAN-00").split()
NO_YEAR_NEW = ["31-DEC-1899              !06:00..07:00 !1     !0",
               "31-DEC-9999..31-DEC-9999 !06:00..24:00 !1     !0"]
NO_YEAR_OLD = ["31-DEC-89,24:00                        !1        !0",
               "00-JAN-90,06:00                        !1        !0"]


class Dice:
    """How the lines of one catalogue come out; most catalogues are without faults."""

    def __init__(self, rng, odd_numbers):
        self.rng = rng
        self.bad = rng.choice([0, 0, 0, 0.05, 0.3])
        self.odd_numbers = self.bad * odd_numbers
        self.line_number = rng.choice([1, 1, 2, 100, 101, 1000, 1000, 9990])
        self.step = rng.choice([1, 1, 1, 10])

    def chance(self, probability):
        return self.rng.random() < probability

    def either(self, probability, words, usual):
        """One of the words with that probability, else the usual text."""
        return self.rng.choice(words) if self.chance(probability) else usual()

    def number(self):
        """Line numbers mostly rise."""
        if self.chance(self.odd_numbers):
            return self.rng.choice(ODD_NUMBERS)
        if self.chance(0.05):
            self.line_number = max(1, self.line_number - self.rng.randrange(4))
        self.line_number += self.step
        return str(self.line_number - self.step)

    def value(self):
        return self.either(0.01, LONG_VALUES, lambda: self.rng.choice(VALUES))

    def optional_value(self):
        return self.either(0.3, ["."], self.value)

    def time(self):
        return self.either(0.1, ["00:00", "24:00", "23:59", "12:00"], lambda: (
            f"{self.rng.randrange(24):02}:{self.rng.choice([0, 15, 30, 45, 59]):02}"))

    def times(self):
        return self.time() + ("" if self.chance(0.4) else f"..{self.time()}")

    def days(self):
        keys = WEEKDAYS if self.chance(0.7) else SPECIAL_DAYS
        first = self.rng.randrange(7)
        last = self.rng.randrange(first, 7)
        return keys[first] + ("" if self.chance(0.4) else f"..{keys[last]}")

    def date(self, first_year, last_year):
        """Often at the end of a month or of the year."""
        year = self.rng.randint(first_year, last_year)
        month = self.rng.choice([1, 2, 2, 3, 12, 12, self.rng.randint(1, 12)])
        length = calendar.monthrange(year, month)[1]
        return datetime.date(year, month, self.rng.choice([1, length, length - 2,
                                                           self.rng.randint(1, length)]))

    def spoiled(self, line):
        """One fault of the kind that a bad transmission or a wrong hand makes."""
        if not self.chance(self.bad * 0.3):
            return line
        fault = self.rng.randrange(4)
        if fault == 0:
            return line[: self.rng.randrange(len(line) + 1)]
        if fault == 1:
            return "!".join(part.strip() for part in line.split("!"))
        if fault == 2:
            return line.lower()
        # A "*" replaces any character except a separator, often at a column that is tested.
        places = [at for at, character in enumerate(line) if character != "!"]
        eighths = [at for at in places if (at + 1) % 8 == 0]
        at = self.rng.choice(eighths if eighths and self.chance(0.5) else places)
        return line[:at] + "*" + line[at + 1 :]

    def catalogue(self, counts, line):
        """As many lines as one of the counts says, rarely all that there can be; some twice."""
        count = self.rng.choice(counts) if self.chance(0.98) else LINES
        lines = [self.spoiled(line()) for _ in range(count)]
        if self.chance(0.2):
            self.rng.shuffle(lines)
        return (lines * 2 if self.chance(0.1) else lines)[:LINES]


COUNTS = [0, 1, 3, 6, 12, 12, 20, 20, 30]


def weekday_line(dice, name, days=None, own_block=0.0):
    """With that probability the number of a "PLT" line is one of its control."""
    days = days or dice.either(dice.bad * 0.2, BAD_DAYS, dice.days)
    times = dice.either(dice.bad, BAD_TIMES, dice.times)
    if is_plt(name):
        block = block_of(name) * 100
        number = dice.either(own_block, range(block, block + 100), dice.number)
        line = pad_or_cut(f" {number:<4} {days}", 31)
        return pad_or_cut(f"{line}!{times}", 45) + f"!{dice.value():<6}"
    line = pad_or_cut(f"{dice.number():>5} !{name:<12.12}!{days}", 33)
    return pad_or_cut(f"{line}!{times}", 59) + f"!{dice.value():<9}!{dice.optional_value()}"


def weekday_catalogue(rng, name, new, plt_names):
    dice = Dice(rng, 1)
    if dice.chance(0.01):
        # A few lines that become more than a catalogue can have, since neighbouring days differ.
        dice.bad = 0
        return [weekday_line(dice, name, days) for days in
                "TU TH SA SD2 SD4 SD6".split() + ["MO..SU", "SD1..SD7"] * 15]
    mixed, own_block = 0 if new else 0.5, rng.choice([0, 0.9, 1])
    lines = dice.catalogue(COUNTS, lambda: weekday_line(
        dice, dice.either(mixed, OTHER_NAMES + 2 * plt_names, lambda: name), None, own_block))
    if dice.chance(0.05):  # more rows than a day holds
        lines += [weekday_line(dice, name) for _ in range(17)]
    return lines[:LINES]


def calendar_line(dice, plt, new, last_year):
    first = dice.date(*dice.rng.choice([(2026, 2027), (2026, 2027), (1994, last_year)]))
    days = dice.either(0.01, [400, 511, 512, 3000], lambda: dice.rng.choice([0, 0, 0, 1, 2, 5, 40]))
    run = date_text(first, new) + (f"..{date_text(first + days * ONE_DAY, new)}" if days else "")
    run = dice.either(dice.bad, BAD_DATES_NEW if new else BAD_DATES_OLD, lambda: run)
    day_type = dice.either(dice.bad * 0.3, BAD_DAY_TYPES, lambda: dice.either(
        0.5, DAY_KEYS, lambda: "SD1"))
    if plt:
        return pad_or_cut(f" {dice.number():<4} {run}", 31) + "!" + day_type
    return pad_or_cut(f"{dice.number():>5} !{run}", 59) + "!" + day_type


def calendar_catalogue(rng, name, new, last_year):
    dice = Dice(rng, 0.3)
    mixed = rng.choice([0, 0, 0.3, 1])
    return dice.catalogue(COUNTS, lambda: calendar_line(
        dice, is_plt(name) != dice.chance(mixed), new, last_year))


def exception_date(dice, date, new):
    """With day 31 it rolls over in a shorter month."""
    text = date_text(date, new)
    text = text[:3] + dice.either(dice.bad * 0.3, BAD_MONTHS, lambda: text[3:6]) + text[6:]
    return "31" + text[2:] if dice.chance(0.15) else text


def exception_line(dice, name, new):
    first = dice.date(*dice.rng.choice([(2026, 2027), (1991, 2088)]))
    start = exception_date(dice, first, new)
    stop = exception_date(dice, first + dice.rng.choice([0, 1, 2, 10, 31]) * ONE_DAY, new)
    start_time, stop_time = dice.either(dice.bad, BAD_START_TIMES, dice.time), dice.time()
    with_stop = dice.chance(0.6)
    if new:
        line = pad_or_cut(f"{dice.number():<5} {start}" + (f"..{stop}" if with_stop else ""), 30)
        line = pad_or_cut(f"{line} !{start_time}..{stop_time}", 45)
    else:
        line = pad_or_cut(f"{dice.number():>5} !{name}", 19) + f"!{start},{start_time}"
        line = pad_or_cut(line + (f"..{stop},{stop_time}" if with_stop else ""), 59)
    value = dice.optional_value()
    if value != "." or dice.chance(0.2):
        value = value.ljust(6 if new else 9)
    return f"{line}!{value}!{dice.optional_value()}"


def exception_catalogue(rng, name, new):
    dice = Dice(rng, 0.3)
    lines = dice.catalogue([0, 1, 2, 4, 7, 8, 8, 9, 10, 12], lambda: exception_line(
        dice, dice.either(0 if new else 0.4, [*OTHER_NAMES, "PLT9"], lambda: name), new))
    if lines and dice.chance(0.01):  # a year that no line holds
        lines[-1] = (f"{dice.number():<5} {rng.choice(NO_YEAR_NEW)}" if new
                     else f"{dice.number():>5} !{name:<12.12}!{rng.choice(NO_YEAR_OLD)}")
    return lines
