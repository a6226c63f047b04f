"""The rows of ECDICT that can become words of the library."""
import csv
import re
from dataclasses import dataclass, field

WORD = re.compile(r"(?=.{1,20}$)'?[a-z](?:[a-z'.-]*[a-z'.])?")


@dataclass
class Entry:
    """One headword of ECDICT, with the words that its `exchange` names as its forms and as its lemma."""
    word: str
    phonetic: str = ''
    gloss: str = ''
    rank: int = 0
    levels: str = ''
    is_name: bool = False
    forms: list = field(default_factory=list)  # (kind, word)
    lemma: str = ''
    form_kinds: str = ''


def combined_rank(bnc, frq):
    """The better of the two ranks, 0 for none.

    Each list puts whole groups of common words far too low (`me`, `them` and `I` in the one, `going` and
    `john` in the other), and neither puts a rare word high.
    """
    return min((int(rank) for rank in (bnc, frq) if rank and int(rank)), default=0)


def escaped_gloss(translation):
    """A gloss on one line: line ends as \\n, backslashes doubled, nothing at the end of any line."""
    text = translation.replace('\\n', '\n').replace('\\r', '').replace('\r', '').replace('\\"', '"')
    text = re.sub('[\t\x00-\x09\x0b-\x1f\x7f\u200b\ufeff\ue000-\uf8ff]', ' ', text)
    lines = (line.strip() for line in text.split('\n'))
    return '\n'.join(line for line in lines if line).replace('\\', '\\\\').replace('\n', '\\n')


def exchanged(exchange):
    """`exchange` as pairs of kind and word: `p:went/d:gone`."""
    pairs = (part.split(':', 1) for part in exchange.split('/') if ':' in part)
    return [(kind, word.strip().lower()) for kind, word in pairs if word.strip()]


def entry_of(row):
    word = row['word'].lower()
    pairs = exchanged(row['exchange'])
    named = dict(pairs)
    return Entry(
        word=word, phonetic=row['phonetic'].strip(), gloss=escaped_gloss(row['translation']),
        rank=combined_rank(row['bnc'], row['frq']), levels=' '.join(row['tag'].split()), is_name=row['word'] != word,
        forms=[pair for pair in pairs if pair[0] not in '01' and pair[1] != word and WORD.fullmatch(pair[1])],
        lemma=named.get('0', '') if named.get('0') != word else '', form_kinds=named.get('1', ''))


def read(path):
    """All single words of ECDICT, by word; the first row of a word counts."""
    entries = {}
    with open(path, encoding='utf-8', newline='') as file:
        for row in csv.DictReader(file):
            if WORD.fullmatch(row['word'].lower()):
                entry = entry_of(row)
                entries.setdefault(entry.word, entry)
    return entries
