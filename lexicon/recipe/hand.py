"""What was written or chosen by hand: overrides, and the readings of words that have several."""
from dataclasses import dataclass

from . import notation

DROPPED = '-'


@dataclass
class Reading:
    """One of several readings of a word, with its word class and a sense that tells it from the others."""
    code: str
    word_class: str
    sense: str = ''

    def label(self):
        return f'{self.word_class} ({self.sense})' if self.sense else self.word_class


def rows_of(path, columns):
    """The rows of a hand-made table with the given columns, with their numbers; ValueError tells what is wrong."""
    lines = path.read_text(encoding='utf-8').splitlines()
    for number, line in enumerate(lines, 1):
        row = line.split('\t')
        if len(row) != len(columns) or number == 1 and row != columns:
            raise ValueError(f'{path.name}, line {number}: the columns are {" ".join(columns)}')
        if number > 1:
            yield number, row


def spoken_rows(path, columns):
    """The rows of a table whose second column is a transcription, checked against the notation."""
    for number, row in rows_of(path, columns):
        try:
            if row[1] != DROPPED:
                notation.check(row[1])
        except notation.Refused as refusal:
            raise ValueError(f'{path.name}, line {number}: {row[1]}: {refusal}') from refusal
        yield row


def glosses(path):
    """Word: the line that its gloss begins with."""
    return {word: gloss for _, (word, gloss) in rows_of(path, ['word', 'gloss'])}


def overrides(path):
    """Word: transcription, or `-` for a word that must not have one."""
    return {word: code for word, code, _ in spoken_rows(path, ['word', 'yinbiao', 'reason'])}


def homographs(path):
    """Word: its readings, the one that is right most often first."""
    found = {}
    for word, code, word_class, sense in spoken_rows(path, ['word', 'yinbiao', 'class', 'sense']):
        found.setdefault(word, []).append(Reading(code, word_class, sense))
    return found


def add(library, tables):
    """Puts the hand-made transcriptions in place of all others."""
    for word, code in tables.overrides.items():
        library.readings.pop(word, None)
        if code == DROPPED:
            library.said.pop(word, None)
        else:
            library.add(word, code, 'hand')
    library.homographs = dict(tables.homographs)
    for word, readings in tables.homographs.items():
        library.add(word, readings[0].code, 'hand')
        library.readings[word] = [(reading.word_class == 'v', reading.code) for reading in readings]
