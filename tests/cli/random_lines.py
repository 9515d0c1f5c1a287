"""Random catalogues: mostly lines as a controller sends them, now and then faulty ones.

Every function draws from the random.Random it is given, so a seed gives the same catalogue again.
"""

from catalogue_rules import (DAY_KEYS, MONTHS, SPECIAL_DAYS, WEEKDAYS, is_plt, month_length,
                             pad_or_cut)

VALUES = ["0", "1", "1", "21", "20.5", "17,25", "-5", "0.1", "1E3", "999999", ".5", "+3", "x"]
LONG_VALUES = ["1234567", "12345678", "-12345.678", "0.00012345", "3.1415926", "1E12"]
OTHER_NAMES = ["OTHER", "AHU", "ahu1", "AHU11", "", "PLT9"]
NEVER = 0.0


def chance(rng, probability):
    return rng.random() < probability


def value(rng):
    return rng.choice(LONG_VALUES) if chance(rng, 0.01) else rng.choice(VALUES)


def optional_value(rng):
    return "." if chance(rng, 0.3) else value(rng)


def time(rng):
    if chance(rng, 0.1):
        return rng.choice(["00:00", "24:00", "23:59", "12:00"])
    return f"{rng.randrange(24):02}:{rng.choice([0, 15, 30, 45, 59]):02}"


def damaged(rng, line):
    """One fault of the kind that a bad transmission or a wrong hand makes."""
    fault = rng.randrange(4)
    if fault == 0:
        return line[: rng.randrange(len(line) + 1)]
    if fault == 1:
        return "!".join(part.strip() for part in line.split("!"))
    if fault == 2:
        return line.lower()
    return with_star(rng, line)


def with_star(rng, line):
    """A "*" in the place of any character but a separator, often at a column that is tested."""
    places = [at for at, character in enumerate(line) if character != "!"]
    eighths = [at for at in places if (at + 1) % 8 == 0]
    at = rng.choice(eighths if eighths and chance(rng, 0.5) else places)
    return line[:at] + "*" + line[at + 1 :]


def faults(rng):
    """How likely each line of a catalogue is faulty: most catalogues are clean."""
    return rng.choice([NEVER, NEVER, NEVER, 0.05, 0.3])


def line_count(rng):
    return rng.choice([0, 1, 3, 6, 12, 12, 20, 20, 30]) if chance(rng, 0.98) else 201


class Numbers:
    """Line numbers, mostly rising."""

    def __init__(self, rng, odd):
        self.rng = rng
        self.odd = odd
        self.number = rng.choice([1, 1, 2, 100, 101, 1000, 1000, 9990])
        self.step = rng.choice([1, 1, 1, 10])

    def next(self):
        if chance(self.rng, self.odd):
            return self.rng.choice(["", "0", "abc", "12.5", "1E3", "99999", "1234567"])
        if chance(self.rng, 0.05):
            self.number = max(1, self.number - self.rng.randrange(4))
        self.number += self.step
        return str(self.number - self.step)


# Weekday catalogue


def day_range(rng):
    keys = WEEKDAYS if chance(rng, 0.7) else SPECIAL_DAYS
    first = rng.randrange(7)
    last = rng.randrange(first, 7)
    return keys[first] if chance(rng, 0.4) else f"{keys[first]}..{keys[last]}"


def bad_day_range(rng):
    return rng.choice(["XX", "", "mo", "SD0", "SD8", "SD", "M", "MO..", "MO..XX", "FR..MO",
                       "SD3..SD1", "SU..SD1", "SD1..MO", "SD1..SD9", "MOTU", "MO TU", "TU-WE"])


def times(rng):
    return time(rng) if chance(rng, 0.4) else f"{time(rng)}..{time(rng)}"


def bad_times(rng):
    return rng.choice(["", "6:30", "06:5", "xx:yy", "24:30..25:00", "99:99", "06:00..", "06:00..1",
                       "06:00   18:00", "-6:00", "06.30..07.45"])


def weekday_line(rng, number, name, bad):
    days = bad_day_range(rng) if chance(rng, bad * 0.2) else day_range(rng)
    switching = bad_times(rng) if chance(rng, bad) else times(rng)
    if is_plt(name):
        line = pad_or_cut(f" {number:<4} {days}", 31)
        return pad_or_cut(f"{line}!{switching}", 45) + f"!{value(rng):<6}"
    line = pad_or_cut(f"{number:>5} !{name:<12.12}!{days}", 33)
    line = pad_or_cut(f"{line}!{switching}", 59)
    return f"{line}!{value(rng):<9}!{optional_value(rng)}"


def spoiled(rng, line, bad):
    return damaged(rng, line) if chance(rng, bad * 0.3) else line


def staggered_lines(rng, numbers, name):
    """Few lines that come out as more than a catalogue holds: no two neighbouring days agree."""
    days = ["TU", "TH", "SA", "SD2", "SD4", "SD6"] + ["MO..SU", "SD1..SD7"] * 15
    lines = [weekday_line(rng, numbers.next(), name, NEVER) for _ in days]
    column = 7 if is_plt(name) else 21
    end = 31 if is_plt(name) else 33
    return [line[: column - 1] + pad_or_cut(keys, end - column + 1) + line[end:]
            for line, keys in zip(lines, days)]


def weekday_catalogue(rng, name, new):
    bad = faults(rng)
    numbers = Numbers(rng, bad)
    if chance(rng, 0.01):
        return staggered_lines(rng, numbers, name)
    mixed = NEVER if new or (is_plt(name) and chance(rng, 0.9)) else 0.3
    lines = []
    for _ in range(line_count(rng)):
        owner = rng.choice(OTHER_NAMES) if chance(rng, mixed) else name
        lines.append(spoiled(rng, weekday_line(rng, numbers.next(), owner, bad), bad))
    if chance(rng, 0.05):
        lines += [weekday_line(rng, numbers.next(), name, NEVER) for _ in range(17)]
    if chance(rng, 0.1):
        lines += lines
    return lines[:201]


# Dates


def random_date(rng, first_year, last_year):
    """Often at the end of a month or of the year."""
    year = rng.randint(first_year, last_year)
    month = rng.choice([1, 2, 2, 3, 12, 12, rng.randint(1, 12)])
    length = month_length(year, month)
    return year, month, rng.choice([1, length, max(1, length - 2), rng.randint(1, length)])


def days_later(date, days):
    year, month, day = date
    day += days
    while day > month_length(year, month):
        day -= month_length(year, month)
        year, month = (year, month + 1) if month < 12 else (year + 1, 1)
    return year, month, day


def date_text(date, four_digits):
    year = f"{date[0]:04}" if four_digits else f"{date[0] % 100:02}"
    return f"{date[2]:02}-{MONTHS[date[1] - 1]}-{year}"


# Special-day calendar


def dates(rng, four_digits, last_year):
    first_year, last_year = rng.choice([(2026, 2027), (2026, 2027), (1994, last_year)])
    first = random_date(rng, first_year, last_year)
    days = rng.choice([0, 0, 0, 1, 2, 5, 40])
    if chance(rng, 0.01):
        days = rng.choice([400, 511, 512, 3000])
    text = date_text(first, four_digits)
    return text if days == 0 else f"{text}..{date_text(days_later(first, days), four_digits)}"


def bad_dates(rng, four_digits):
    century = "20" if four_digits else ""
    wrong = ["00-JAN-26", "32-JAN-26", "31-APR-26", "29-FEB-27", "24-MAJ-26", "24-dec-26",
             "24-DEC-26..23-DEC-26", "24-DEC-26..", "24-DEC-26..32-DEC-26", "24-DEC-26..01-MAJ-27",
             "24/DEC/26", "2-DEC-26", "DEC"]
    wrong = [text.replace("-2", f"-{century}2") for text in wrong]
    if four_digits:
        wrong += ["24-DEC-1993", "24-DEC-9999", "24-DEC-26", "24-DEC-", "31-DEC-2026..01-JAN-1990"]
    else:
        wrong += ["24-DEC-93", "24-DEC-94", "24-DEC-2026", "24-DEC-", "24-DEC--1",
                  "31-DEC-93..01-JAN-94", "20-DEC-99..02-JAN-00"]
    return rng.choice(wrong)


def day_type(rng, bad):
    if chance(rng, bad):
        return rng.choice(["SD0", "SD8", "", "XX", "sd1", "SD", "MOX", "MO X", "SD1X", " TU "])
    return rng.choice(DAY_KEYS) if chance(rng, 0.5) else "SD1"


def calendar_line(rng, number, plt, four_digits, last_year, bad):
    run = bad_dates(rng, four_digits) if chance(rng, bad) else dates(rng, four_digits, last_year)
    if plt:
        return pad_or_cut(f" {number:<4} {run}", 31) + "!" + day_type(rng, bad * 0.3)
    return pad_or_cut(f"{number:>5} !{run}", 59) + "!" + day_type(rng, bad * 0.3)


def calendar_catalogue(rng, name, new, last_year):
    bad = faults(rng)
    numbers = Numbers(rng, bad * 0.3)
    mixed = rng.choice([NEVER, NEVER, 0.3, 1.0])
    lines = []
    for _ in range(line_count(rng)):
        plt = is_plt(name) != chance(rng, mixed)
        line = calendar_line(rng, numbers.next(), plt, new, last_year, bad)
        lines.append(spoiled(rng, line, bad))
    if chance(rng, 0.1):
        lines += lines
    return lines[:201]


# Exception catalogue


def rolling(rng, text):
    """The same date with day 31, which rolls over in a shorter month."""
    return "31" + text[2:] if chance(rng, 0.15) else text


def exception_dates(rng, new):
    first_year, last_year = rng.choice([(2026, 2027), (1991, 2088)])
    start = random_date(rng, first_year, last_year)
    stop = days_later(start, rng.choice([0, 1, 2, 10, 31]))
    return rolling(rng, date_text(start, new)), rolling(rng, date_text(stop, new))


def exception_start_time(rng, bad):
    return rng.choice(["25:70", "xx:30", "6:30 ", "     "]) if chance(rng, bad) else time(rng)


def unknown_month(rng, text, bad):
    return text[:3] + rng.choice(["XXX", "jan", "   "]) + text[6:] if chance(rng, bad) else text


def exception_line(rng, number, name, new, bad):
    start, stop = (unknown_month(rng, text, bad * 0.3) for text in exception_dates(rng, new))
    with_stop = chance(rng, 0.6)
    start_time, stop_time = exception_start_time(rng, bad), time(rng)
    values = optional_value(rng), optional_value(rng)
    if new:
        line = pad_or_cut(f"{number:<5} {start}" + (f"..{stop}" if with_stop else ""), 30)
        line = pad_or_cut(f"{line} !{start_time}..{stop_time}", 45)
        width = 6
    else:
        line = pad_or_cut(f"{number:>5} !{name}", 19) + f"!{start},{start_time}"
        line = pad_or_cut(line + (f"..{stop},{stop_time}" if with_stop else ""), 59)
        width = 9
    padded = values[0] if values[0] == "." and chance(rng, 0.8) else values[0].ljust(width)
    return f"{line}!{padded}!{values[1]}"


def year_that_does_not_fit(rng, number, name, new):
    if new:
        return f"{number:<5} " + rng.choice(["31-DEC-1899              !06:00..07:00 !1     !0",
                                             "31-DEC-9999..31-DEC-9999 !06:00..24:00 !1     !0"])
    return f"{number:>5} !{name:<12.12}!" + rng.choice(
        ["31-DEC-89,24:00                        !1        !0",
         "00-JAN-90,06:00                        !1        !0"])


def exception_catalogue(rng, name, new):
    bad = faults(rng)
    numbers = Numbers(rng, bad * 0.3)
    mixed = NEVER if new else 0.4
    count = rng.choice([0, 1, 2, 4, 7, 8, 8, 9, 10, 12]) if chance(rng, 0.98) else 201
    lines = []
    for _ in range(count):
        owner = rng.choice(OTHER_NAMES) if chance(rng, mixed) else name
        line = exception_line(rng, numbers.next(), owner, new, bad)
        lines.append(spoiled(rng, line, bad))
    if count and chance(rng, 0.01):
        lines[-1] = year_that_does_not_fit(rng, numbers.next(), name, new)
    if chance(rng, 0.1):
        lines += lines
    return lines[:201]
