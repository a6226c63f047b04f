"""Rows of ECDICT that can be read but not believed, because the sounds do not fit the letters."""
import difflib
import re

from . import notation
from .notation import Refused, VOWEL_SET

# Consonants in classes so coarse that English spelling keeps to them; w, h and y are too often silent.
LETTER_CLASSES = (
    ('[gk]n', 'N'), ('gh|wh|[wyh]|(?<=a)l(?=k)|(?<=ou)l(?=d)|b(?=t)', ''), ('m[bn]?$|m', 'M'), ('n', 'N'), ('l', 'L'),
    ('r', 'R'), ('ph|[bpfv]', 'P'), ('[cdgjkqstxz]+', 'O'))
_LETTERS = re.compile('|'.join(f'(?P<c{n}>{pattern})' for n, (pattern, _) in enumerate(LETTER_CLASSES)))
SOUND_CLASSES = {'m': 'M', 'n': 'N', 'N': 'N', 'l': 'L', 'r': 'R', **dict.fromkeys('bpfv', 'P'),
                 **dict.fromkeys('whj', '')}

# Final letters that are hardly ever silent, with the sounds that may end such a word.
FINAL_SOUNDS = {'d': 'd t', 'k': 'k', 'l': 'l', 'm': 'm', 'n': 'n N m', 'f': 'f v'}
# Vowels that no English word ends in.
NEVER_FINAL = frozenset(('e', 'A', 'Q', 'R'))
# Letters that are silent in French words or not at all: no consonant but the N of such words may stand there.
SILENT_OR_SAID = frozenset('tp')

# An ending, what it sounds like, and what may stand in place of it in the word that it was put to.
ENDINGS = (('ing', ('iN', 'in'), ('', 'e')), ('ed', ('d', 't'), ('', 'e', 'y')), ('s', ('s', 'z'), ('', 'e', 'y')),
           ('er', ('E',), ('', 'e', 'y')), ('ly', ('li',), ('', 'le', 'al')), ('ness', ('s',), ('',)))

# The fit below which a row is refused: one silent letter of two or three is nothing unusual.
SHORT, LEAST_FIT_SHORT, LEAST_FIT = 3, 0.5, 0.6


def skeleton(classes):
    """A run of classes as spelling and sound share it: obstruents as one, and none told after n (sing, finger)."""
    return re.sub('O+', 'O', classes).replace('NO', 'N')


def letter_skeleton(word):
    """The classes of the written consonants; an r that no vowel follows is not heard."""
    word = re.sub(r'r+(?![aeiouyr])|r(?=e[ds]?$)', '', re.sub(r'([a-z])\1', r'\1', word))
    return skeleton(''.join(LETTER_CLASSES[int(m.lastgroup[1:])][1] for m in _LETTERS.finditer(word)))


def sound_skeleton(bare):
    return skeleton(''.join(SOUND_CLASSES.get(sound, 'O') for sound in bare if sound not in VOWEL_SET))


def stems(word, ending, put_back):
    """The words that an ending may have been put to."""
    stem = word[:-len(ending)]
    found = [stem + letters for letters in put_back if letters != 'y']
    if ending != 's' and stem[-1:] == stem[-2:-1]:
        found.append(stem[:-1])
    if stem.endswith('i') and 'y' in put_back:
        found.append(stem[:-1] + 'y')
    if stem.endswith('ie') and ending == 's':
        found.append(stem[:-2] + 'y')
    if stem.endswith('e') and ending == 's':
        found.append(stem[:-1])
    return found


def word_without_ending(word, code, known):
    """The word whose sounds alone stand in the row, when the row lacks those of the ending; else none.

    `known` gives the transcription of a word. An -ing or -ed is never silent; a final s may be, and an
    r of -er is, so that these lack their ending only where the row repeats that of the word.
    """
    for ending, sounds, put_back in ENDINGS:
        if word.endswith(ending) and not code.endswith(sounds):
            for stem in stems(word, ending, put_back):
                if stem != word and (known(stem) == code or known(stem) and ending in ('ing', 'ed')):
                    return stem
    return ''


def check_final(word, bare):
    last = bare[-1]
    if word.endswith('ing') and last != 'N':
        raise Refused('final consonant missing')
    if last not in FINAL_SOUNDS.get(word[-1], last).split():
        raise Refused('final consonant missing')
    if word[-1] in SILENT_OR_SAID and last not in VOWEL_SET and last not in (word[-1], 'N'):
        raise Refused('final consonant wrong')


def fit(word, code):
    """How well the consonants of a transcription fit those of the spelling, 1 for entirely."""
    bare, _ = notation.separated(notation.sounds_of(code))
    letters, sounds = letter_skeleton(word), sound_skeleton(bare)
    return 1 if letters == sounds else difflib.SequenceMatcher(None, letters, sounds, autojunk=False).ratio()


def check_against_letters(word, code):
    """Refuses a transcription that does not fit the spelling, as of another word or of a part of it."""
    bare, _ = notation.separated(notation.sounds_of(code))
    if bare[-1] in NEVER_FINAL:
        raise Refused('short vowel at the end')
    groups = len(re.findall('[aeiouy]+', re.sub('(?<=[^aeiouyl])es?$', '', word)))
    if not word.isalpha() or len(word) < 4 or not groups:
        return
    check_final(word, bare)
    consonants = len(letter_skeleton(word))
    if consonants > 1 and fit(word, code) < (LEAST_FIT if consonants > SHORT else LEAST_FIT_SHORT):
        raise Refused('does not fit the letters')
    if not groups * 0.5 <= len(notation.nuclei(bare)) <= len(re.findall('[aeiouyw]', word)) + word.count('sm') + 1:
        raise Refused('does not fit the syllables')
