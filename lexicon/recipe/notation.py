"""The alphabet of the 13th-edition notation, its syllables and its marks.

A transcription is handled as a list of sounds (`['5', 'p', 'i:', 'p', 'l']`) and becomes one string only
at the very end, because a string such as `iE` no longer tells one diphthong from two vowels.
"""
import re

VOWELS = ('i:', 'B:', 'C:', 'u:', 'E:', 'ei', 'ai', 'Ci', 'Eu', 'au', 'iE', 'ZE', 'uE',
          'i', 'e', 'A', 'Q', 'R', 'u', 'E')
CONSONANTS = ('tF', 'dV', *'pbtdkgfvszFVWThmnNwjrl')
PRIMARY, SECONDARY = '5', '7'
MARKS = (PRIMARY, SECONDARY)

# What may begin an English syllable; a single consonant may, except N.
ONSETS = frozenset(CONSONANTS) - {'N'} | frozenset(
    'pl pr pj bl br bj tr tj tw dr dj dw kl kr kj kw gl gr gj gw fl fr fj vj Wr Wj Ww Fr '
    'sp st sk sm sn sl sw sf sj zj mj nj lj hj spl spr spj str stj skl skr skj skw'.split())

# A consonant after which l, n or m at the end of a run of consonants makes a syllable of its own.
OBSTRUENTS = frozenset('p b t d k g f v s z F V W T tF dV'.split())
BEFORE_SYLLABIC = {'l': OBSTRUENTS | {'m', 'n'}, 'n': OBSTRUENTS, 'm': frozenset('szTW')}

VOWEL_SET = frozenset(VOWELS)
# `iE:` is the two vowels i and E:, never iE with a length mark of its own.
_SOUND = re.compile('|'.join((*(v if v.endswith(':') else v + '(?!:)' for v in VOWELS), *CONSONANTS, *MARKS)))


class Refused(Exception):
    """A transcription that cannot be read or cannot be believed; the text is the reason to count it under."""


def sounds_of(code):
    """Splits a finished transcription into its sounds, the longest first."""
    sounds = _SOUND.findall(code)
    if ''.join(sounds) != code:
        raise Refused('outside the notation')
    return sounds


def nuclei(sounds):
    """The places of the sounds that carry a syllable, in a list of sounds without marks."""
    found = []
    for place, sound in enumerate(sounds):
        following = sounds[place + 1] if place + 1 < len(sounds) else ''
        syllabic = (place and following not in VOWEL_SET and following != 'j'
                    and sounds[place - 1] in BEFORE_SYLLABIC.get(sound, ()))
        if sound in VOWEL_SET or syllabic:
            found.append(place)
    return found


def onset(sounds, nucleus, previous):
    """Where the syllable of `nucleus` begins: the longest run of consonants that may begin a syllable."""
    if previous is None:
        return 0
    start = nucleus
    for candidate in range(nucleus - 1, max(previous, nucleus - 4), -1):
        if ''.join(sounds[candidate:nucleus]) in ONSETS:
            start = candidate
    return start


def guessed_stress(sounds, carriers):
    """The stressed syllable of a word that has no usable mark, when only one can be it."""
    strong = [n for n in carriers if sounds[n] in VOWEL_SET and sounds[n] not in ('E', 'i')]
    if not strong and sounds[carriers[0]] == 'i':
        strong = [n for n in carriers if sounds[n] == 'i'][:1]
    if len(strong) != 1:
        raise Refused('stress unknown')
    return strong[0]


def separated(marked):
    """Takes the marks out of a list of sounds: the bare sounds, and each mark with the place it stood at."""
    bare, marks = [], []
    for sound in marked:
        if sound in MARKS:
            marks.append((len(bare), sound))
        else:
            bare.append(sound)
    return bare, marks


def chosen_marks(bare, carriers, marks):
    """Gives each mark to the next syllable and leaves exactly one primary: the last of several."""
    given = {}
    for place, mark in marks:
        bearer = next((n for n in carriers if n >= place), None)
        if bearer is not None and bare[bearer] in VOWEL_SET:
            given[bearer] = PRIMARY if PRIMARY in (mark, given.get(bearer)) else SECONDARY
    primaries = [n for n in given if given[n] == PRIMARY] or list(given)
    stressed = max(primaries, default=None)
    if stressed is None or bare[stressed] == 'E':
        return {guessed_stress(bare, carriers): PRIMARY}
    return {n: PRIMARY if n == stressed else SECONDARY for n in given if bare[n] != 'E'}


def written(marked):
    """The finished transcription of a list of sounds, with its marks chosen and put in their places."""
    bare, marks = separated(marked)
    carriers = nuclei(bare)
    if not any(sound in VOWEL_SET for sound in bare):
        raise Refused('no vowel')
    if len(carriers) == 1:
        return ''.join(bare)
    given = chosen_marks(bare, carriers, marks)
    starts = {}
    for previous, nucleus in zip([None, *carriers], carriers):
        if nucleus in given:
            starts[onset(bare, nucleus, previous)] = given[nucleus]
    return ''.join(starts.get(place, '') + sound for place, sound in enumerate(bare))


def with_ending(sounds, ending):
    """The transcription of a word with an ending: the marks of the word stay where they are.

    A word of one syllable has none and takes its mark before its first sound.
    """
    marked = ''.join([*sounds, *ending])
    if PRIMARY in sounds:
        return marked
    return written([PRIMARY, *sounds, *ending])


def syllable_count(code):
    bare, _ = separated(sounds_of(code))
    return len(nuclei(bare))


def unmarked(code):
    return code.replace(PRIMARY, '').replace(SECONDARY, '')


def check(code):
    """Refuses a finished transcription that breaks a rule of the notation."""
    bare, marks = separated(sounds_of(code))
    wanted = 1 if len(nuclei(bare)) > 1 else 0
    if sum(mark == PRIMARY for _, mark in marks) != wanted or (not wanted and marks):
        raise Refused('marks wrong')
    for sound, following in zip(bare, [*bare[1:], '']):
        if sound == 'r' and following not in VOWEL_SET and following != 'j':
            raise Refused('r without a vowel')
