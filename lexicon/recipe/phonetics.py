"""Reading the phonetic strings of ECDICT, which were written in several styles by several hands."""
import difflib
import re

from . import notation
from .notation import Refused

# One writing for each sound before anything is looked at. `^` is g and the acute is a stress mark in
# whole blocks of rows; U+04D9, U+0454 and U+03B5 are letters of other alphabets in place of the phonetic ones.
ONE_WRITING = str.maketrans({
    **dict.fromkeys('\u200b\ufeff[]“”', ''), '\xa0': ' ', '（': '(', '）': ')', '；': ';', '，': ',', '‑': '-',
    '\u04d9': 'ə', '\u0454': 'ɛ', '\u03b5': 'ɛ', '\u0261': 'g', '^': 'g', 'ː': ':', 'ɹ': 'r', 'ɵ': 'ə', 'c': 'k',
    'x': 'k', 'I': 'ɪ', **dict.fromkeys('ˈˊʹ’', "'"), 'ˌ': ','})

# Slips at the end of a word that its spelling gives away: (spelling, written end, meant end).
MENDED_ENDS = (('[ts]ion$', 'ʃəŋ?$', 'ʃən'), ('um$', 'ən$', 'əm'), ('er$', r'(?<=[^aæeiouɑɔɒəɛɜɪʊʌ])ŋ$', 'ə'),
               ('ly$', 'ly$', 'li'))

# A label of a word class or of a country in front of or behind a reading.
VERB_LABEL = re.compile(r'\(?for v[it]?\.\)?|\(v[it]?\.\)')
LABEL = re.compile(r'\((?:for )?(?:n|v|vi|vt|adj|adv|a)\.?\)|\(\s*/|[强弱英]')
AMERICAN = re.compile(r'\(\?@\).*|美.*')

# Several readings in one field.
BETWEEN_READINGS = re.compile(
    r"\s*;\s*|\s*[,.]\s+(?=\S)|[,./](?=')|(?<=\S)[,.](?=[-,])|,(?=[^\s',.;-]+-(?:$|[,.;\s]))")
HALVES = re.compile(r"^([^',./]+)[,./]([^',./]+)$")

# Words whose th is voiced at their beginning, as it is in no noun or verb.
VOICED_TH = frozenset('than that the thee their theirs them then thence there these they thine this thither those '
                      'thou though thus thy thyself'.split())

# The longest writing first. A diphthong that ends in a schwa must leave the schwa to a following u or `:`.
SOUNDS = (
    ('i:', 'i:'), ('[ei]ː', 'i:'), ('[aɑ]:', 'B:'), ('[ɔɒo]:', 'C:'), ('ɔə(?![uʊ:])', 'C:'), ('u:', 'u:'),
    ('[əɜɛ]:', 'E:'), ('[ɜɝ]', 'E:'), ('e:', 'ei'),
    ('e[iɪ]', 'ei'), ('[aɑ][iɪ]', 'ai'), ('[ɔoɒ][iɪ]', 'Ci'), ('[əoɔ][uʊ]', 'Eu'), ('[aɑ][uʊ]', 'au'),
    ('[iɪ]ə(?![uʊ:])', 'iE'), ('[ɛe]ə(?![uʊ:])', 'ZE'), ('[uʊ]ə(?![uʊ:])', 'uE'),
    ('tʃ', 'tF'), ('dʒ', 'dV'), ('ʃ', 'F'), ('ʒ', 'V'), ('θ', 'W'), ('ð', 'T'), ('ŋ', 'N'), ('hw', 'w'),
    ('[iɪ]', 'i'), ('[eɛ]', 'e'), ('[æa]', 'A'), ('ɑ', 'B:'), ('[ɔɒ]', 'R'), ('[uʊ]', 'u'), ('ʌ', 'Q'),
    ('[əɚ]', 'E'), ('o', 'Eu'), ("'", '5'), ('[,.]', '7'), ('[ -]', ''), ('([pbtdkgfvszhmnwjrl])', None),
)
_READER = re.compile('|'.join(f'(?P<s{n}>{pattern})' for n, (pattern, _) in enumerate(SOUNDS)))

# Signs of an American style in which e, o and a mean other sounds than elsewhere.
AMERICAN_STYLE = re.compile(r"[ɚɝ]|ɛ(?!ə)|o(?![uʊ:iɪ])|[ɔɑ]r[,.']?[^aæeiouɑɔɒəɛɪʊʌ,.':\s]")


def cleaned(phonetic):
    """The field in one writing; a run of backslashes is a schwa there."""
    phonetic = re.sub(r'\\+', 'ə', phonetic.translate(ONE_WRITING))
    return AMERICAN.sub('', phonetic).strip(' /=')


def with_u(reading):
    """Gives back the u of the rows that have j for it: a yod stands before a vowel only, and never after ə or a."""
    reading = reading.replace('jj', 'ju')
    reading = re.sub(r'(?<=[əaɑ])j', 'u', reading)
    return re.sub(r"j(?!'?[uʊ]|[aæeioɑɔɒəɛɜɪʌɚɝ])", 'u', reading)


def with_bracketed(reading):
    """Sounds in brackets are said, except a schwa before l, where the l is a syllable without it, and a length."""
    reading = reading.replace('(:)', '')
    reading = re.sub(r'(?<=[^aeiouæɑɔɒəɛɜɪʊʌ:])\(ə\)(?=l)', '', reading)
    return re.sub(r'[()]', '', reading)


def split_readings(phonetic):
    """The readings of one field as (is labelled as the verb's, text); halves such as `-nis` are left out."""
    found = []
    for part in BETWEEN_READINGS.split(cleaned(phonetic)):
        halves = HALVES.match(part)
        alike = halves and difflib.SequenceMatcher(None, *halves.groups()).ratio() >= 0.5
        for text in halves.groups() if alike else (part,):
            is_verb = bool(VERB_LABEL.search(text))
            text = LABEL.sub('', VERB_LABEL.sub('', text)).strip()
            if text and not text.startswith('-') and not text.endswith('-'):
                found.append((is_verb, with_bracketed(with_u(text))))
    return found


def spoken_r_only(sounds):
    """Leaves r before a vowel or a yod, once; the other r's are spelling or American."""
    kept = []
    for place, sound in enumerate(sounds):
        following = next((s for s in sounds[place + 1:] if s not in notation.MARKS), '')
        if sound != 'r' or following in notation.VOWEL_SET or following == 'j':
            kept.append(sound)
    return kept


def sounds_read(word, text):
    """The sounds of one reading, as they stand there."""
    if 'a' not in word and re.search('ɑ(?![:iɪuʊ])', text):
        text = re.sub('ɑ(?![:iɪuʊ])', 'ɒ', text)
    sounds, place = [], 0
    while place < len(text):
        match = _READER.match(text, place)
        if not match:
            raise Refused('unreadable')
        sound = SOUNDS[int(match.lastgroup[1:])][1]
        sounds.append(match.group() if sound is None else sound)
        place = match.end()
    return [sound for sound in sounds if sound]


def short_final(word, sounds):
    """A long i: without stress at the end of a word in -y or -ie(s) is the short one."""
    if re.search(r'(?:y|ie)s?$', word) and len(sounds) > 2:
        last = -2 if word.endswith('s') else -1
        if sounds[last] == 'i:' and sum(s in notation.VOWEL_SET for s in sounds) > 1 and not (
                notation.PRIMARY in sounds[last - 3:]):
            sounds[last] = 'i'
    return sounds


def with_length(word, sounds):
    """A stressed schwa that is spelled with an r before a consonant has lost its length mark."""
    if not re.search('[eiou]r[^aeiouyr]', word) or notation.PRIMARY not in sounds:
        return sounds
    stressed = next((n for n in range(sounds.index(notation.PRIMARY), len(sounds))
                     if sounds[n] in notation.VOWEL_SET), 0)
    return [*sounds[:stressed], 'E:', *sounds[stressed + 1:]] if sounds[stressed] == 'E' else sounds


def with_short_o(word, sounds):
    """The short sound of off, cloth, cost and long, which the rows have long here and there."""
    if not re.search('o(?:f|s[skpt]|th|ng|g)', word) or re.search('o[aur]|a[luw]', word):
        return sounds
    return ['R' if sound == 'C:' and following in ('f', 's', 'W', 'N', 'g') else sound
            for sound, following in zip(sounds, [*sounds[1:], ''])]


def with_voiced_th(word, sounds):
    if word not in VOICED_TH:
        return sounds
    first = next(n for n, sound in enumerate(sounds) if sound not in notation.MARKS)
    return [*sounds[:first], 'T', *sounds[first + 1:]]


def with_stress_before_ion(word, sounds):
    """The stress of -ation is on its a, whatever the word that it was put to has."""
    if not re.search('[^t]ations?$', word) or 'ei' not in sounds[-5:-2]:
        return sounds
    place = max(n for n, sound in enumerate(sounds) if sound == 'ei')
    head = [notation.SECONDARY if sound == notation.PRIMARY else sound for sound in sounds[:place]]
    return [*head, notation.PRIMARY, *sounds[place:]]


REPAIRS = (short_final, with_short_o, with_voiced_th, with_stress_before_ion, with_length)


def transcription(word, text):
    """The transcription of one reading of a word; Refused when it cannot be read or believed."""
    if AMERICAN_STYLE.search(text):
        raise Refused('american style')
    for spelling, end, meant in MENDED_ENDS:
        if re.search(spelling, word):
            text = re.sub(end, meant, text)
    sounds = spoken_r_only(sounds_read(word, text))
    for repair in REPAIRS:
        sounds = repair(word, sounds)
    code = notation.written(sounds)
    notation.check(code)
    return code


def readings_of(word, phonetic):
    """All readings of a field that can be used, as (is the verb's, transcription); Refused if there is none."""
    found, reason = [], 'unreadable'
    for is_verb, text in split_readings(phonetic):
        try:
            entry = is_verb, transcription(word, text)
            if entry not in found:
                found.append(entry)
        except Refused as refusal:
            reason = str(refusal)
    if not found:
        raise Refused(reason)
    return found
