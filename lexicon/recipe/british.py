"""Sounds that the rows have in an American way, or unlike the rest of the library, and how they are mended.

Each rule is (word, sounds) to sounds and leaves alone what it does not concern. Sounds come with marks.
"""
import re

from . import notation
from .notation import MARKS, PRIMARY, VOWEL_SET

# Words that have a long B: before f, s, th or n and another consonant in British, and A in American.
BATH_WORDS = frozenset('''
    advance advantage aft after aghast answer ask avalanche basket bask bath blanch blast branch brass can't cask
    casket cast caste castle chaff chance chant clasp class command contrast craft craftsman daft dance demand
    disaster downcast draft draught enchant enhance example fast flask forecast france ghastly giraffe glance glass
    graft grant grasp gasp grass half lance last lather laugh laughter mask mast master nasty outcast overcast pass
    past pasture path photograph autograph telegraph plant planter plaster prance raft rafter ranch rascal rasp
    rather repast reprimand sample shaft shan't slander slant staff stanch surpass task trance vantage vast calf
    calve halve aunt mustache moustache alas pastor pastoral cenotaph'''.split())
BATH_ENDINGS = ('s', 'es', 'ed', 'd', 'er', 'ers', 'ing', 'ings', 'y', 'ier', 'iest', 'ly', 'less', 'ful', 'ness',
                'able', 'est', 'man', 'men', 'work', "'s")

_BATH_ROOT = re.compile('|'.join(sorted(BATH_WORDS, key=len, reverse=True)))
_BATH_FORM = re.compile('(?:%s)(?:%s)' % ('|'.join(sorted(word.removesuffix('e') for word in BATH_WORDS)),
                                          '|'.join(('', 'e', *BATH_ENDINGS))))
NOT_BATH = re.compile('castrat|plantation|masti|bathsheba|chaffer')


def is_bath_word(word, code, known):
    """Whether a word is one of them, an inflected form or a compound of one with another known word."""
    if _BATH_FORM.fullmatch(word):
        return not NOT_BATH.match(word)
    bare = notation.unmarked(code)
    for match in _BATH_ROOT.finditer(word):
        rest = word[match.end():] if match.start() == 0 else word[:match.start()] if match.end() == len(word) else ''
        sounds = notation.unmarked(known(rest)) if len(rest) > 2 else ''
        if sounds and (bare.endswith(sounds) if match.start() == 0 else bare.startswith(sounds)):
            return not NOT_BATH.match(word)
    return False


def with_long_a(word, sounds, known):
    """Gives a bath word its long B:, where one of its A's stands before the sounds that call for it."""
    if 'A' not in sounds or not is_bath_word(word, ''.join(sounds), known):
        return sounds
    for place, sound in enumerate(sounds):
        following = [s for s in sounds[place + 1:] if s not in MARKS]
        if sound == 'A' and (following[:1] in (['f'], ['s'], ['W'], ['T'], ['v']) or
                             following[:1] in (['n'], ['m']) and following[1:2] and
                             following[1] not in VOWEL_SET):
            return [*sounds[:place], 'B:', *sounds[place + 1:]]
    return sounds


def stressed(sounds, place):
    """Whether the vowel at a place carries the primary stress."""
    before = sounds[:place]
    start = max((n for n, sound in enumerate(before) if sound in MARKS or sound in VOWEL_SET), default=-1)
    return start >= 0 and before[start] == PRIMARY


def with_schwa_before_r(word, sounds):
    """A stressed i:, ai or ju ends in a schwa before an r, unless a strong vowel follows."""
    made = []
    for place, sound in enumerate(sounds):
        if sounds[place + 1:place + 2] == ['r'] and sounds[place + 2:place + 3] in (['E'], ['i']) and (
                stressed(sounds, place)):
            if sound == 'i:' and 'ey' not in word:
                sound = 'iE'
            elif sound == 'ai':
                made.append('ai')
                sound = 'E'
            elif sound == 'u' and re.search('(?<!o)ur', word):
                sound = 'uE'
        made.append(sound)
    return made


def with_short_o_before_r(word, sounds):
    """The short sound of sorry, warrant, majority and historic, where American has the long one."""
    if not re.search('orr|warr|quarr|orit(?:y|ies)|oric|foreign|forest|florid|floren|orange', word):
        return sounds
    return ['R' if sound == 'C:' and sounds[place + 1:place + 2] == ['r'] else sound
            for place, sound in enumerate(sounds)]


def with_water(word, sounds):
    if 'water' not in word:
        return sounds
    return ['C:' if sound == 'R' and sounds[place - 1] == 'w' and sounds[place + 1:place + 2] == ['t'] else sound
            for place, sound in enumerate(sounds)]


# What the rows write in several ways, or wrongly: (spelling, sounds as they stand there, sounds as they are here).
SPELLED = tuple((re.compile(spelling), re.compile(written), meant) for spelling, written, meant in (
    ('ity$|ities$', '(?<![iuZ])Eti(?=z?$)', 'iti'), ('ness$', 'nEs$', 'nis'), ('nesses$', 'nEsiz$', 'nisiz'),
    ('less$', 'lEs$', 'lis'), ('lessly$', 'lEsli$', 'lisli'), ('lessness$', 'lEsnis$', 'lisnis'),
    ('sms?$', '(?<=[zs])Em(?=z?$)', 'm'), ('age$', 'edV$', 'idV'), ('ages$', 'edViz$', 'idViz'),
    ('(?:[bdgvmz]|[^nlrst]n|[aeiou]n|[aeiou]l|ng)s$', '(?<=[bdgvm])s$', 'z'),
    ('...[td]ed$', '(?<![iEe]d)(?<=[td])$', 'id'), ('[^aeiou]ies$', '(?<=i)$', 'z'),
    ('i[sz]ations?$', '(?<!a)[iE](?=[57]*zeiF)', 'ai'), ('^ps', '^([57]?)ps', r'\1s'),
    ('su[ip]|suit|sewage|^sue', 'sju:?(?=[Einpt57dz])', 'su:'), ('lu', '(?:(?<=[57])|^)lju:', 'lu:'),
    ('^electro', '^7?el(?=ek)', 'i7l'), ('^electro', '^e(?=7lek)', 'i')))

REPAIRS = (with_schwa_before_r, with_short_o_before_r, with_water)


def as_spelled(word, code):
    for spelling, written, meant in SPELLED:
        if spelling.search(word):
            code = written.sub(meant, code)
    return code


def mended(word, code, known):
    """A finished transcription with all repairs; its marks stay before the sounds that they stand at."""
    sounds = notation.sounds_of(as_spelled(word, code))
    for repair in REPAIRS:
        sounds = repair(word, sounds)
    return ''.join(with_long_a(word, sounds, known))
