"""Compares transcriptions of different notations without stress, as strings of one common set of sounds."""
import json
import re

from recipe import notation

from .fetch import npm_package

WIKI = 'wiki-pronunciation-dict@1.0.1'

# A sound of ours as the list writes it; it has neither length nor stress marks.
OURS = {'i:': 'i', 'B:': 'ɑ', 'C:': 'ɔ', 'u:': 'u', 'E:': 'ɜ', 'ei': 'eɪ', 'ai': 'aɪ', 'Ci': 'ɔɪ', 'Eu': 'əʊ',
        'au': 'aʊ', 'iE': 'ɪə', 'ZE': 'eə', 'uE': 'ʊə', 'i': 'ɪ', 'e': 'e', 'A': 'æ', 'Q': 'ʌ', 'R': 'ɒ', 'u': 'ʊ',
        'E': 'ə', 'tF': 'tʃ', 'dV': 'dʒ', 'F': 'ʃ', 'V': 'ʒ', 'W': 'θ', 'T': 'ð', 'N': 'ŋ', '5': '', '7': ''}

# What several sources write in several ways, made one. In turn: letters; the weak a of espeak-ng; the vowels of
# bed and of come, for which the list has one sign each; those of goat and chair; the vowel of happy; i and u
# before another vowel, where the first may be j; the schwa that makes a syllable with l, m or n; doubled sounds
# at the seams of words.
ONE_WRITING = tuple((re.compile(pattern), sign) for pattern, sign in (
    ('ɹ', 'r'), ('[ˈˌː.ˑʔ̩͡ -]', ''), ('g', 'ɡ'), ('ɐ', 'ə'), ('ɛ', 'e'), ('ʌ', 'a'), ('oʊ|ɔʊ', 'əʊ'),
    ('eə(?=r)', 'e'), ('i(?=$|[zd]$|[əɪæeɒaɑɔʊuoɜ])', 'ɪ'), ('(?<=[^əɪæeɒaɑɔʊuoiɜ])j(?=ə)', 'ɪ'),
    ('ʊ(?=[əɪæeɒaɑɔʊoiɜ])', 'u'), ('ə(?=[lmn](?![əɪæeɒaɑɔʊuoi]))', ''), (r'(.)\1', r'\1')))


def plain(ipa):
    """IPA of any of the sources in the common writing."""
    for pattern, sign in ONE_WRITING:
        ipa = pattern.sub(sign, ipa)
    return ipa


def ours(code):
    return plain(''.join(OURS.get(sound, sound) for sound in notation.sounds_of(code)))


def wiki_readings(cache):
    """For each word of the list all its readings in the common writing."""
    path = npm_package(WIKI, cache) / 'dictionaries' / 'en.json'
    found = json.loads(path.read_text(encoding='utf-8'))
    return {word.replace('’', "'"): {plain(reading.replace(' ', '')) for reading in readings}
            for word, readings in found.items()}
