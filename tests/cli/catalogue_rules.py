"""The rules of the three catalogues, read a second time and apart from the program.

Every kind has one function that takes the lines of a catalogue and returns a Rebuilt: what saving
would write, and whether something was lost. Column numbers count from 1, as in the tables that
describe the lines; times are minutes.
"""

import datetime
import re
import struct
from typing import NamedTuple, Optional

LINES = 201
NO_VALUE = 999999.0
LARGEST_INT16 = 32767
DAY = 24 * 60
ONE_DAY = datetime.timedelta(1)
WEEKDAYS = ["MO", "TU", "WE", "TH", "FR", "SA", "SU"]
SPECIAL_DAYS = ["SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"]
DAY_KEYS = WEEKDAYS + SPECIAL_DAYS
MONTHS = ["JAN", "FEB", "MAR", "APR", "MAY", "JUN", "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"]
NUMBER = re.compile(r" *([+-]?(?:[0-9]+\.?[0-9]*|\.[0-9]+)(?:[eE][+-]?[0-9]+)?)")


class Rebuilt(NamedTuple):
    lines: Optional[list]  # None: a message instead of lines, and nothing is written
    lost: bool  # the lines hold less than the catalogue that was read

    @property
    def status(self):
        return 1 if self.lost or self.lines is None else 0


class CannotBuild(Exception):
    """The table has no lines: a number, a value or a date does not fit, or they are too many."""


# Texts and numbers


def columns(text, first, last=None):
    return text[first - 1 : last]


def field(text, index):
    fields = text.split("!")
    return fields[index] if index < len(fields) else ""


def trimmed_field(text, index):
    return field(text, index).strip(" ")


def pad_or_cut(text, width):
    return text[:width].ljust(width)


def val(text):
    match = NUMBER.match(text)
    return float(match.group(1)) if match else 0.0


def parse_value(text):
    """A number with "," or ".", as single precision."""
    number = val(text.replace(",", "."))
    largest = struct.unpack("<f", b"\xff\xff\x7f\x7f")[0]
    return struct.unpack("<f", struct.pack("<f", max(-largest, min(largest, number))))[0]


def parse_optional_value(text):
    return NO_VALUE if text.strip(" ") == "." else parse_value(text)


def format_value(value):
    return f"{value + 0.0:.7g}".replace("e", "E")


def format_optional_value(value):
    return "." if value == NO_VALUE else format_value(value)


def date_text(date, four_digits):
    year = f"{date.year:04}" if four_digits else f"{date.year % 100:02}"
    return f"{date.day:02}-{MONTHS[date.month - 1]}-{year}"


def format_time(minutes):
    return f"{minutes // 60:02}:{minutes % 60:02}"


def without(lines, own):
    """Equal lines have one owner."""
    return [line for line in lines if line not in own]


def is_plt(name):
    return name.upper().startswith("PLT")


def name_in_lines(name):
    """No line holds more of a name than this."""
    return name[:12]


def first_line_number(name):
    """The first number of the name's block of lines, 0 when it has none."""
    digits = re.match("[0-9]+", name[3:]) if is_plt(name) else None
    return int(digits.group()) * 100 + 1 if digits and int(digits.group()) > 0 else 0


def line_number(line):
    return round(max(-1e6, min(1e6, val(line[:6]))))


def numbers_from(number, others):
    """Rising numbers that none of the other lines has."""
    taken = {line_number(line) for line in others}
    while True:
        if number not in taken:
            yield number
        number += 1


def is_blank(line):
    return line.strip(" ") == ""


def fitting_number(number, width):
    if number > LARGEST_INT16 or len(str(number)) > width:
        raise CannotBuild
    return str(number)


def append(lines, line):
    if len(lines) == LINES:
        raise CannotBuild
    lines.append(line)


class Control(NamedTuple):
    """A time control; on a ZEK1 with the names of all "PLT" controls of its object."""

    name: str
    new: bool
    plt_names: list


# Weekday catalogue


class Row(NamedTuple):
    start: int
    stop: int  # -1: none
    start_value: float
    stop_value: float


WEEKDAY_ROWS = 16


def day_of_key(text):
    """The index of the key that the text begins with, and what comes after it; None: no key."""
    if text[:2] in WEEKDAYS:
        return WEEKDAYS.index(text[:2]), text[2:]
    if text[:2] == "SD" and 1 <= val(text[2:]) <= 7:
        return 7 + round(val(text[2:])) - 1, text[2:].lstrip(" ").lstrip("0123456789")
    return None


def days_of(text):
    first = day_of_key(text)
    if first is None:
        return None
    day, rest = first
    if not rest.startswith(".."):
        return None if rest.strip(" *") else [day]
    last = day_of_key(rest[2:])
    if last is None or last[1].strip(" *") or last[0] < day or (day < 7) != (last[0] < 7):
        return None
    return list(range(day, last[0] + 1))


def weekday_time(text, first):
    """Hours and minutes from this column on; no time lies outside the day."""
    hours, minutes = columns(text, first, first + 1), columns(text, first + 3, first + 4)
    return max(0, min(DAY, round(val(hours) * 60 + val(minutes))))


def weekday_row(line, plt):
    time = trimmed_field(line, 1 if plt else 3)
    stop = weekday_time(time, 8) if len(time) >= 8 else -1
    start_value = parse_value(field(line, 2 if plt else 4))
    stop_value = NO_VALUE if plt else parse_optional_value(field(line, 5))
    return Row(weekday_time(time, 1), stop, start_value, stop_value)


def has_name(line):
    """Its first "!" is not beyond the column before the names."""
    return 0 <= line.find("!") <= 6


def block_of(name):
    return first_line_number(name) // 100 or 10


def nameless_of(lines, name, plt_names):
    """The lines without a name that are this "PLT" control's, among those without any name."""
    def within(line, names):
        return int(line_number(line) / 100) in [block_of(each) for each in names]

    if len(set(plt_names)) == 1 and not any(within(line, plt_names) for line in lines):
        return lines
    return [line for line in lines if within(line, [name])]


def own_weekday_lines(lines, control):
    lines = [line for line in lines if not is_blank(line)]
    if control.new:
        return lines
    own = [x for x in lines if has_name(x) and trimmed_field(x, 1) == name_in_lines(control.name)]
    if is_plt(control.name):
        own += nameless_of([x for x in lines if not has_name(x)], control.name, control.plt_names)
    return [line for line in lines if line in own]


def read_weekday(own, plt):
    """The rows of the 14 days, and whether every line found its place."""
    table, whole = [[] for _ in DAY_KEYS], True
    for line in own:
        days = days_of((columns(field(line, 0), 7) if plt else field(line, 2)).strip(" "))
        if days is None:
            return table, False
        if line.count("!") < (2 if plt else 5):
            whole = False
            continue
        if any(len(table[day]) == WEEKDAY_ROWS for day in days):
            return table, False
        for day in days:
            table[day].append(weekday_row(line, plt))
    return table, whole


def groups(table, days):
    """Per row index the groups of neighbouring days that hold the same row."""
    for index in range(WEEKDAY_ROWS):
        first = days[0]
        for day in days:
            row = table[day][index] if index < len(table[day]) else None
            next_day = table[day + 1] if day != days[-1] else []
            if row is not None and index < len(next_day) and next_day[index] == row:
                continue
            if row is not None:
                yield first, day, row
            first = day + 1


def weekday_line(number, control, group):
    first, last, row = group
    name, plt = control.name, is_plt(control.name)
    if plt and not control.new and number // 100 != block_of(name):
        raise CannotBuild
    days = DAY_KEYS[first] + (".." + DAY_KEYS[last] if last != first else "")
    times = format_time(row.start) + (".." + format_time(row.stop) if row.stop != -1 else "")
    value = format_value(row.start_value)
    if len(value) > (6 if plt else 9):
        raise CannotBuild
    if plt:
        line = pad_or_cut(f" {fitting_number(number, 4):<4} {days}", 31)
        return pad_or_cut(f"{line}!{times}", 45) + f"!{value:<6}"
    line = pad_or_cut(f"{fitting_number(number, 5):>5} !{pad_or_cut(name, 12)}!{days}", 33)
    line = pad_or_cut(f"{line}!{times}", 59)
    return f"{line}!{value:<9}!{format_optional_value(row.stop_value)}"


def build_weekday(table, control, numbers):
    lines = []
    for days in (range(0, 7), range(7, 14)):
        for group in groups(table, days):
            append(lines, weekday_line(next(numbers), control, group))
    return lines


def weekday(lines, control):
    plt = is_plt(control.name)
    own = own_weekday_lines(lines, control)
    named = [x for x in own if plt or trimmed_field(x, 1) == name_in_lines(control.name)]
    number = first_line_number(control.name)
    if not plt and named:
        number = line_number(named[0])
    table, whole = read_weekday(named, plt)
    numbers = numbers_from(number or 1000, without(lines, own))
    try:
        return Rebuilt(build_weekday(table, control, numbers), not whole or len(named) < len(own))
    except CannotBuild:
        return Rebuilt(None, True)


# Special-day calendar

CALENDAR_DATES = 512


class YearRule(NamedTuple):
    four_digits: bool
    last: int  # of the two digits or of the four

    def year(self, number):
        """The year that is meant, None for one that is refused."""
        if self.four_digits:
            return number if 1994 <= number <= self.last else None
        if 94 <= number <= 99:
            return 1900 + number
        return 2000 + number if 0 <= number <= self.last else None


def calendar_date(text, rule):
    year = columns(text, 8).strip(" ")
    year = rule.year(int(year)) if year.isdigit() else None
    try:
        month = MONTHS.index(columns(text, 4, 6)) + 1
        return datetime.date(year or 0, month, round(val(columns(text, 1, 2))))
    except ValueError:
        return None


def calendar_run(text, rule):
    """The first and the last date; None when one of them does not exist or they run backwards."""
    begin, joined, end = text.partition("..")
    first = calendar_date(begin, rule)
    last = calendar_date(end, rule) if joined else first
    return (first, last) if first and last and first <= last else None


def is_plt_calendar_line(line):
    return columns(field(line, 0), 7).strip(" ") != "" and columns(line, 6, 6) == " "


def calendar_entry(line, rule):
    """The run of dates and the day type of a line, None when it is not read."""
    plt = is_plt_calendar_line(line)
    dates = columns(field(line, 0), 7).strip(" ") if plt else trimmed_field(line, 1)
    day_type = (trimmed_field(line, 1 if plt else 2) + " ")[:3].strip(" ")
    run = None if "*" in dates else calendar_run(dates, rule)
    return (run, day_type) if run and day_type in DAY_KEYS else None


def read_calendar(lines, rule):
    entries, lost = [], False
    for line in lines:
        entry = calendar_entry(line, rule)
        if entry is None:
            lost = True
            continue
        (date, last), day_type = entry
        while date <= last and len(entries) < CALENDAR_DATES:
            entries.append((date, day_type))
            date += ONE_DAY
        lost = lost or date <= last
    return entries, lost


def calendar_runs(entries):
    runs = []
    for date, day_type in sorted(entries, key=lambda entry: entry[0]):
        if runs and runs[-1][2] == day_type and runs[-1][1] + ONE_DAY == date:
            runs[-1][1] = date
        else:
            runs.append([date, date, day_type])
    return runs


def calendar_line(number, plt, run, rule):
    first, last, day_type = run
    dates = date_text(first, rule.four_digits)
    if last != first:
        dates += ".." + date_text(last, rule.four_digits)
    if plt:
        return pad_or_cut(f" {fitting_number(number, 4):<4} {dates}", 31) + "!" + day_type
    return pad_or_cut(f"{fitting_number(number, 5):>5} !{dates}", 59) + "!" + day_type


def calendar(lines, name, rule):
    entries, lost = read_calendar(lines, rule)
    plt, number, built = is_plt(name), first_line_number(name) or 1000, []
    numbered = [line for line in lines if line_number(line) > 0]
    if numbered:
        plt, number = is_plt_calendar_line(numbered[0]), line_number(numbered[0])
    try:
        for offset, run in enumerate(calendar_runs(entries)):
            append(built, calendar_line(number + offset, plt, run, rule))
    except CannotBuild:
        return Rebuilt(None, True)
    return Rebuilt(built, lost)


# Exception catalogue

EXCEPTION_ROWS = 8
EPOCH = datetime.date(1899, 12, 30).toordinal()


class Exceptional(NamedTuple):
    start: int  # minutes since the epoch
    stop: int  # the same; a day or less is a time without a date
    start_value: float
    stop_value: float


class RowNumbers(NamedTuple):
    start: int
    multiply: int


class NoException(Exception):
    pass


def date_minutes(text, year):
    """A day beyond the end of its month rolls over into the next."""
    day = val(columns(text, 1, 2))
    if columns(text, 4, 6) not in MONTHS or not 1 <= day <= 31 or not 1900 <= year <= 9999:
        raise NoException
    if not columns(text, 8, 8).isdigit():
        raise NoException
    first = datetime.date(year, MONTHS.index(columns(text, 4, 6)) + 1, 1).toordinal()
    return (first + round(day) - 1 - EPOCH) * DAY


def time_minutes(text):
    hours, minutes = val(columns(text, 1, 2)), val(columns(text, 4, 5))
    if hours > 24 or minutes >= 60:
        raise NoException
    return round(max(hours, 0)) * 60 + round(max(minutes, 0))


def has_stop(text, first):
    """Whether ".." stands in this column; nothing else may, except blanks and stars."""
    if columns(text, first).strip(" *") and columns(text, first, first + 1) != "..":
        raise NoException
    return columns(text, first, first + 1) == ".."


def old_moment(text):
    """DD-MON-YY,HH:NN"""
    year = round(val(columns(text, 8, 9)))
    return date_minutes(text, (2000 if year < 90 else 1900) + year) + time_minutes(text[10:])


def old_exception(line):
    if line.count("!") < 4:
        raise NoException
    text = field(line, 2)
    stop = 0
    if has_stop(text, 16):
        stop = old_moment(columns(text, 18))
        if columns(text, 33).strip(" *"):
            raise NoException
    return Exceptional(old_moment(text), stop, parse_optional_value(field(line, 3)),
                       parse_optional_value(field(line, 4)))


def new_exception(line):
    if line.count("!") < 3:
        raise NoException
    fields = columns(line, 7)
    dates, times = field(fields, 0), field(fields, 1)
    start = date_minutes(dates, round(val(columns(dates, 8, 11)))) + time_minutes(times)
    has_stop(times, 6)
    stop = min(time_minutes(columns(times, 8)), DAY)
    if has_stop(dates, 12):
        second = columns(dates, 14)
        if columns(second, 12).strip(" *"):
            raise NoException
        stop = time_minutes(columns(times, 8))
        stop += date_minutes(second, round(val(columns(second, 8, 11))))
    return Exceptional(start, stop, parse_optional_value(field(fields, 2)),
                       parse_optional_value(field(fields, 3)))


def is_skipped_for_star(line):
    return "*" in line and (line.index("*") + 1) % 8 != 0


def read_exceptions(own, new):
    """The rows in the order in which they are saved, and whether something was lost."""
    rows, lost = [], False
    for line in own:
        if is_skipped_for_star(line):
            lost = True
            continue
        if len(rows) == EXCEPTION_ROWS:
            return rows, True
        try:
            rows.append(new_exception(line) if new else old_exception(line))
        except NoException:
            lost = True
    return sorted(rows, key=lambda row: -row.start), lost


def date_of(minutes, new):
    ordinal = EPOCH + minutes // DAY
    if not 1 <= ordinal <= datetime.date.max.toordinal():
        raise CannotBuild
    date = datetime.date.fromordinal(ordinal)
    if not (1900 <= date.year if new else 1990 <= date.year <= 2089):
        raise CannotBuild
    return date_text(date, new)


def exception_values(row, width):
    start = "."
    if row.start_value != NO_VALUE:
        start = format_value(row.start_value).ljust(width)
        if len(start) > width:  # cut, it would be another value
            raise CannotBuild
    return f"!{start}!{format_optional_value(row.stop_value)}"


def new_exception_line(number, row):
    dates = date_of(row.start, True)
    stop_time = row.stop
    if row.stop > DAY:
        dates += ".." + date_of(row.stop, True)
        stop_time = row.stop % DAY
    line = pad_or_cut(f"{fitting_number(number, 5):<5} {dates}", 30)
    times = f"{format_time(row.start % DAY)}..{format_time(stop_time)}"
    return pad_or_cut(f"{line} !{times}", 45) + exception_values(row, 6)


def old_exception_line(number, name, row):
    def moment(minutes):
        return f"{date_of(minutes, False)},{format_time(minutes % DAY)}"

    line = pad_or_cut(f"{fitting_number(number, 5):>5} !{name}", 19) + "!" + moment(row.start)
    if row.stop > DAY:
        line += ".." + moment(row.stop)
    return pad_or_cut(line, 59) + exception_values(row, 9)


def build_exceptions(rows, control, numbers, kept):
    built = list(kept)
    for row in rows:
        append(built, new_exception_line(next(numbers), row) if control.new
               else old_exception_line(next(numbers), control.name, row))
    return built


def exceptions(lines, control, rule):
    name = control.name
    own = [x for x in lines if not is_blank(x)
           and (control.new or trimmed_field(x, 1) == name_in_lines(name))]
    others = without(lines, own)
    rows, lost = read_exceptions(own, control.new)
    old = [line_number(x) for x in own if not is_skipped_for_star(x) and line_number(x) > 0]
    number = old[0] if old else 0
    if is_plt(name):
        number = round(val(name[3:])) * rule.multiply + rule.start
    kept = [x for x in others if "*" not in x and not is_blank(x)]
    try:
        numbers = numbers_from(number or rule.start, others)
        return Rebuilt(build_exceptions(rows, control, numbers, kept), lost)
    except CannotBuild:
        return Rebuilt(None, True)
