"""Turns the American transcriptions of the CMU pronouncing dictionary into British ones."""
import json
import re

from . import notation
from .notation import Refused

CONSONANTS = {'B': 'b', 'CH': 'tF', 'D': 'd', 'DH': 'T', 'F': 'f', 'G': 'g', 'HH': 'h', 'JH': 'dV', 'K': 'k', 'L': 'l',
              'M': 'm', 'N': 'n', 'NG': 'N', 'P': 'p', 'R': 'r', 'S': 's', 'SH': 'F', 'T': 't', 'TH': 'W', 'V': 'v',
              'W': 'w', 'Y': 'j', 'Z': 'z', 'ZH': 'V'}
VOWELS = {'AA': 'R', 'AE': 'A', 'AH': 'Q', 'AO': 'C:', 'AW': 'au', 'AY': 'ai', 'EH': 'e', 'ER': 'E:', 'EY': 'ei',
          'IH': 'i', 'IY': 'i:', 'OW': 'Eu', 'OY': 'Ci', 'UH': 'u', 'UW': 'u:'}

# Vowels before an r: (sound, spelling that has the first value, else the second). The r itself stays
# where a vowel follows.
BEFORE_R = {'AA': ('o|wa|qua', 'R', 'B:'), 'AO': ('orr|arr|orit|oric|oran|orei|ores', 'R', 'C:'),
            'EH': ('err|e[rl]', 'e', 'ZE'), 'AE': ('a', 'A', 'ZE'), 'IH': ('irr|[iy]r', 'i', 'iE'),
            'IY': ('', 'iE', 'iE'), 'UH': ('', 'uE', 'uE'), 'UW': ('', 'uE', 'uE'), 'AH': ('', 'Q', 'Q'),
            'AW': ('', 'auE', 'auE'), 'AY': ('', 'aiE', 'aiE'), 'OW': ('', 'C:', 'C:'), 'EY': ('', 'ZE', 'ZE'),
            'OY': ('', 'CiE', 'CiE')}
SPLIT = {'auE': ['au', 'E'], 'aiE': ['ai', 'E'], 'CiE': ['Ci', 'E']}

# After these a long u: that is spelled with u or ew has a yod in British.
WITH_YOD = frozenset(('T', 'D', 'N'))

VOWEL_LETTERS = re.compile('(?:qu|gu(?=[ei]))?([aeiou][aeiouyw]*|(?<!^)y[aeiou]*)')


def read_lines(lines):
    """The dictionary of the npm package as word: list of readings, each a list of ARPAbet symbols."""
    found = {}
    for line in lines:
        match = re.match(r'\s*"([^"(]+)(?:\(\d+\))?": "([^"#]+)', line)
        if match:
            found.setdefault(match[1], []).append(match[2].split())
    return found


def spelled(word, count):
    """The letters of each of `count` vowels, or blanks when spelling and sound do not go together."""
    for silent in ('(?<=[^aeiouy])e(?=s?$|d$|ly$|ment|ful|less|ness)', '(?<=[^aeiouy])e(?=$)', '$'):
        groups = [match[1] for match in VOWEL_LETTERS.finditer(re.sub(silent, '', word))]
        if len(groups) == count:
            return groups
    return [''] * count


def vowel(name, stress, letters, before, is_last):
    """A vowel that no r follows. `before` is the symbol ahead of it."""
    if name == 'AH':
        return ['Q'] if stress != '0' else ['i'] if letters in ('i', 'y') else ['E']
    if name == 'IY' and stress == '0':
        return ['i']
    if name == 'AA':
        return ['B:'] if letters.startswith('a') and before != 'W' or is_last else ['R']
    if name == 'UW' and before in WITH_YOD and re.match('u|ew|eu', letters) and stress != '0':
        return ['j', 'u:']
    return [VOWELS[name]]


def vowel_with_r(name, stress, word, linked):
    """A vowel and the r behind it, which is heard when `linked`."""
    spelling, first, second = BEFORE_R[name]
    sound = first if linked and spelling and re.search(spelling, word) else second
    if name == 'EH' and stress == '0':
        sound = 'E'
    return SPLIT.get(sound, [sound]) + (['r'] if linked else [])


def sounds_of(word, symbols):
    """The British sounds of one American reading, with marks."""
    names = [re.sub(r'\d', '', symbol) for symbol in symbols]
    stresses = [symbol[-1] if symbol[-1].isdigit() else '' for symbol in symbols]
    letters = iter(spelled(word, sum(bool(stress) for stress in stresses)))
    sounds, place = [], 0
    while place < len(names):
        name, stress = names[place], stresses[place]
        after = place + 1
        if not stress:
            sounds.append(CONSONANTS[name])
            place = after
            continue
        written = next(letters)
        sounds += {'1': ['5'], '2': ['7']}.get(stress, [])
        if name == 'ER':
            linked = after < len(names) and bool(stresses[after])
            if linked and stress == '0':
                sounds += ['E', 'r']
            else:
                sounds += ['Q', 'r'] if linked and re.search('urr|our', word) else ['E:'] if stress != '0' else ['E']
                sounds += ['r'] if linked and sounds[-1] == 'E:' else []
        elif after < len(names) and names[after] == 'R':
            linked = after + 1 < len(names) and bool(stresses[after + 1])
            sounds += vowel_with_r(name, stress, word, linked)
            after += 1
        else:
            sounds += vowel(name, stress, written, names[place - 1] if place else '', after == len(names))
        place = after
    return sounds


# Endings that keep a full vowel in American alone: (spelling, American sounds, British sounds).
ENDINGS = tuple((re.compile(spelling), re.compile(american + '$'), british) for spelling, american, british in (
    ('ary$', '7?(?:ZEr|er|Er)i', 'Eri'), ('ory$', '7?(?:C:r|Rr|Er)i', 'Eri'), ('mony$', '7?mEuni', 'mEni'),
    ('aries$', '7?(?:ZEr|er|Er)iz', 'Eriz'), ('ories$', '7?(?:C:r|Rr|Er)iz', 'Eriz'),
    ('ative$', '7?eitiv', 'Etiv'), ('[^aeiou]ile$', '(?:E|i)?l', 'ail'), ('ity$', 'Eti', 'iti'),
    ('ness$', 'nEs', 'nis'), ('less$', 'lEs', 'lis'), ('ism$', 'izEm', 'izm'), ('ages?$', 'E(?=dV)', 'i'),
    ('ible$', 'ibEl', 'Ebl'), ('le$', r'(?<=[pbtdkgfvszFVW])El', 'l'), ('les$', r'(?<=[pbtdkgfvszFVW])Elz', 'lz')))


# An ending is one only behind the stressed vowel: ceremony, not story.
FIRST_VOWEL = re.compile('[iBCuEeaZAQR]')


def without_later_marks(sounds):
    """American marks secondary stress behind the primary, British only before it."""
    primary = sounds.index(notation.PRIMARY) if notation.PRIMARY in sounds else len(sounds)
    return [sound for place, sound in enumerate(sounds) if sound != notation.SECONDARY or place < primary]


def transcription(word, symbols):
    """The British transcription of an American reading; Refused when it cannot be one."""
    if sum(symbol.endswith('1') for symbol in symbols) > 1:
        raise Refused('american: several stresses')
    code = notation.written(without_later_marks(sounds_of(word, symbols)))
    for spelling, american, british in ENDINGS:
        match = american.search(code) if spelling.search(word) else None
        if match and FIRST_VOWEL.search(code, code.find(notation.PRIMARY) + 1, match.start()):
            code = code[:match.start()] + british + code[match.end():]
    notation.check(code)
    return code


def readings(path):
    """For each word of the dictionary its British readings, the first first; those that are none are left out."""
    found = {}
    for word, spoken in read_lines(path.read_text(encoding='utf-8').splitlines()).items():
        for symbols in spoken:
            try:
                code = transcription(word, symbols)
            except (Refused, KeyError):
                continue
            found.setdefault(word, []).append(code)
    return found
