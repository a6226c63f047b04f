"""Where stress marks stand: at the seams of compounds, and on the syllables that call for a secondary stress."""
from . import notation
from .notation import PRIMARY, SECONDARY, VOWEL_SET

# Prefixes that are heard as parts of their own, with their sounds.
PREFIXES = {'un': ('Qn',), 'mis': ('mis',), 'dis': ('dis',), 'trans': ('trAns', 'trB:ns', 'trAnz', 'trB:nz'),
            'non': ('nRn',), 'in': ('in',), 'sub': ('sQb',), 'inter': ('intEr', 'intE'), 'ex': ('eks',),
            'hyper': ('haipEr',), 'super': ('sju:pEr', 'su:pEr'), 'electro': ('ilektrEu',), 'mid': ('mid',),
            'fore': ('fC:r', 'fC:'), 'counter': ('kauntEr',)}
# First parts of compounds that are stressed on the second.
ADVERBS = frozenset('up out off all here there where what who whom when how north south over under in on'.split())
LONGEST_MOVE = 2

# Shorter words are in a compound by chance more often than not: imp in impact.
SHORTEST_FIRST = 4


def placed(code):
    """The bare sounds, and the marks as (place, mark)."""
    return notation.separated(notation.sounds_of(code))


def with_marks(bare, marks):
    at = dict(marks)
    return ''.join(at.get(place, '') + sound for place, sound in enumerate(bare))


def seams(word, bare, known):
    """The places in the sounds where a second part begins, and whether that part may have the main stress."""
    text, found = ''.join(bare), {}
    starts = {len(''.join(bare[:place])): place for place in range(1, len(bare))}
    for cut in range(2, len(word) - 2):
        first, second = word[:cut], word[cut:].lstrip('-')
        tail = notation.unmarked(known(second)) if len(second) > 2 else ''
        place = starts.get(len(text) - len(tail)) if tail and text.endswith(tail) else None
        if not place:
            continue
        head = text[:-len(tail)]
        own = notation.unmarked(known(first))
        as_word = own and head in (own, own + 'r')
        is_prefix = head in PREFIXES.get(first, ()) and not (first == 'trans' and word[cut] in 'aeiou')
        is_prefix = is_prefix or as_word and first in ADVERBS
        if is_prefix or as_word and cut >= SHORTEST_FIRST:
            found[place] = is_prefix or bare[place] not in VOWEL_SET and bare[place] != 'j'
    return found


def at_seams(word, code, known):
    """Moves a mark that stands ahead of the last consonants of the first part to the seam."""
    bare, marks = placed(code)
    found = seams(word, bare, known) if marks else {}
    moved = []
    for place, mark in marks:
        later = [seam for seam, may_be_main in found.items() if place < seam <= place + LONGEST_MOVE
                 and (mark == SECONDARY or may_be_main) and not VOWEL_SET.intersection(bare[place:seam])]
        moved.append((place if place in found else max(later, default=place), mark))
    return with_marks(bare, moved)


def with_secondary(code):
    """Gives a word that is stressed on its third syllable or later a secondary stress before it.

    It falls on the first syllable, or on the second where the first is weak and two come behind it.
    """
    bare, marks = placed(code)
    carriers = notation.nuclei(bare)
    primary = next((place for place, mark in marks if mark == PRIMARY), None)
    if primary is None or any(mark == SECONDARY and place < primary for place, mark in marks):
        return code
    ahead = [nucleus for nucleus in carriers if nucleus < primary]
    if len(ahead) < 2:
        return code
    bearer = ahead[0]
    if bare[bearer] == 'E' or len(ahead) == 3 and bare[bearer] == 'i' and bare[ahead[1]] not in ('E', 'i'):
        bearer = ahead[1] if len(ahead) > 2 else None
    if bearer is None or bare[bearer] not in VOWEL_SET or bare[bearer] == 'E':
        return code
    previous = max((n for n in carriers if n < bearer), default=None)
    return with_marks(bare, [*marks, (notation.onset(bare, bearer, previous), SECONDARY)])


def without_stray(word, code, known):
    """Takes the marks behind the main stress away, but for the one of the second part of a compound."""
    bare, marks = placed(code)
    primary = next((place for place, mark in marks if mark == PRIMARY), len(bare))
    found = seams(word, bare, known) if any(place > primary for place, _ in marks) else {}
    return with_marks(bare, [(place, mark) for place, mark in marks if place <= primary or place in found])


def settled(word, code, known):
    """The transcription with all its marks where they belong."""
    return with_secondary(without_stray(word, at_seams(word, code, known), known))
