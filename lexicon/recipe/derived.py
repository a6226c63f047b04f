"""Words that no row transcribes, though their parts or their other spelling are known."""
import re

from . import forms, notation
from .notation import Refused

# Two spellings of one word: (this, the other). Each is tried where it stands in the word.
TWINS = (('(?<=...)is(?=e|ing|ation)', 'iz'), ('(?<=...)iz(?=e|ing|ation)', 'is'), ('ys(?=e|ing)', 'yz'),
         ('our', 'or'), ('or', 'our'), ('tre(?=s?$)', 'ter'), ('ter(?=s?$)', 'tre'), ('bre(?=s?$)', 'ber'),
         ('ber(?=s?$)', 'bre'), ('(?<=..)ae(?=..)', 'e'), ('(?<=..)oe(?=..)', 'e'), ('ogue', 'og'),
         ('ll(?=ed|ing|er|or)', 'l'), ('l(?=ed|ing|er|or)', 'll'), ('l(?=ment|ful)', 'll'), ('ll(?=ment|ful)', 'l'),
         ('amme(?=s?$)', 'am'), ('ence(?=s?$)', 'ense'), ('ense(?=s?$)', 'ence'), ('dge', 'dg'), ('dgm', 'dgem'),
         ('-', ''))

# Endings that change neither the stress nor the sounds before them: (ending, sounds, what the base ends in instead).
SUFFIXES = (('ically', ('l', 'i'), ('ic', 'ical')), ('ly', ('l', 'i'), ('', 'le')), ('ness', ('n', 'i', 's'), ('',)),
            ('less', ('l', 'i', 's'), ('',)), ('ment', ('m', 'E', 'n', 't'), ('',)), ('ship', ('F', 'i', 'p'), ('',)),
            ('able', ('E', 'b', 'l'), ('', 'e')), ('er', ('E',), ('', 'e')), ('or', ('E',), ('', 'e')))
PREFIXES = (('un', ('Q', 'n')), ('non-', ('n', 'R', 'n')), ('non', ('n', 'R', 'n')))


# Rarer verbs are hardly met in old texts.
ARCHAIC_RANK = 12000


def other_spelling(word, known):
    for spelling, other in TWINS:
        for match in re.finditer(spelling, word):
            code = known(word[:match.start()] + other + word[match.end():])
            if code:
                return code
    return ''


def joined(base, code, added):
    """The sounds of a base with an ending: one l of two, and the r of the base heard before a vowel."""
    sounds = notation.sounds_of(code)
    if added[0] == sounds[-1] == 'l':
        added = added[1:]
    if added[0] in notation.VOWEL_SET:
        sounds = sounds + forms.kept_r(base, sounds)
    return notation.with_ending(sounds, added)


def with_suffix(word, known, is_verb):
    for ending, added, put_back in SUFFIXES:
        if not word.endswith(ending) or len(word) < len(ending) + 3:
            continue
        stem = word[:-len(ending)]
        bases = [stem + letters for letters in put_back] + ([stem[:-1] + 'y'] if stem.endswith('i') else [])
        if ending in ('able', 'er', 'or'):
            bases = [base for base in (*bases, stem[:-1] if stem[-1] == stem[-2] else '') if is_verb(base)]
        base = next((base for base in bases if known(base)), '')
        if base:
            return joined(base, known(base), added)
    return ''


def with_prefix(word, known):
    for prefix, added in PREFIXES:
        base = word.removeprefix(prefix)
        if base != word and known(base) and len(base) > 3:
            sounds = notation.sounds_of(known(base))
            stressed = sounds if notation.PRIMARY in sounds else [notation.PRIMARY, *sounds]
            return notation.written([*added, *stressed])
    return ''


def add_archaic(library):
    """Adds the forms in -eth and -est of the common verbs: goeth, knowest."""
    for word, entry in library.entries.items():
        participle = next((form for kind, form in entry.forms if kind == 'i'), '')
        if not (0 < entry.rank <= ARCHAIC_RANK and participle and library.is_verb(word) and library.known(word)):
            continue
        for ending in ('eth', 'est'):
            form = forms.archaic_spelling(word, participle, ending)
            code = library.verb_code(word)
            if not library.known(form):
                library.add(form, forms.form_code(word, code, form, ending), 'archaic')
                library.lemmas[form] = word


def add(library):
    """Transcribes the words of the library that still have none and are made of known parts.

    Twice, so that a word may have a prefix and a suffix.
    """
    for _ in range(2):
        for word in library.wanting():
            if library.is_personal_name(word):
                continue
            try:
                twin = other_spelling(word, library.known)
                made = twin or with_suffix(word, library.known, library.is_verb) or with_prefix(word, library.known)
            except Refused:
                made = ''
            if made:
                library.add(word, made, 'twin' if twin else 'derived')
