"""Choosing among the readings of several sources.

Two votes are asked where the rows of ECDICT alone could be wrong: the CMU dictionary, turned British,
and espeak-ng. They agree with a reading when its consonants are the same: vowels differ between accents,
and what is gained where both votes hear another vowel is lost again elsewhere. What espeak-ng says is never
shipped; it only weighs readings that other sources have.
"""
import re
import subprocess

from . import notation, phonetics
from .notation import MARKS, Refused, VOWEL_SET

VOICE = 'en-gb-x-rp'

# Consonants that accents, or the dictionaries of one accent, tell in different ways.
ALIKE = {'z': 's', 'T': 'W', 'V': 'F', 'tF': 'tF', 'dV': 'dF'}
VOWEL = '@'
# Not heard everywhere, or melted into the sound ahead: the yod of new and of nature, the h and w of weak words,
# a stop between other consonants, the g of finger, the second of two alike.
LIGHT = re.compile(r'(?<=[td])F|(?<=[nF])[td](?=[sFmlbpkg])|(?<=N)g|(.)(?=\1)')


def consonants(code):
    """The consonants that a reading cannot lack."""
    text = ''.join(VOWEL if sound in VOWEL_SET else ALIKE.get(sound, sound)
                   for sound in notation.sounds_of(code) if sound not in MARKS)
    return LIGHT.sub('', re.sub('[jhw]', '', text.replace('sj', 'F'))).replace(VOWEL, '')


def agree(one, other):
    return consonants(one) == consonants(other)


def spoken(words):
    """What espeak-ng says for each word, as it writes it."""
    made = subprocess.run(['espeak-ng', '-q', '--ipa', '-v', VOICE], input='\n'.join(words), text=True, check=True,
                          stdout=subprocess.PIPE).stdout.splitlines() if words else []
    if len(made) != len(words):
        raise RuntimeError(f'espeak-ng answered {len(made)} lines to {len(words)} words')
    return {word: line.strip() for word, line in zip(words, made)}


class Espeak:
    """The readings of espeak-ng for the words that are asked, which are asked together."""

    def __init__(self, words):
        self.readings = {}
        for word, said in spoken(sorted(words)).items():
            try:
                text = said.replace('ɐ', 'ə').translate(phonetics.ONE_WRITING)
                self.readings[word] = notation.written(phonetics.spoken_r_only(phonetics.sounds_read('a', text)))
            except Refused:
                pass

    def agrees(self, word, code):
        said = self.readings.get(word)
        return bool(said) and agree(said, code)


def settle(library, american):
    """Gives up the first reading of a rare word whose consonants neither of the two votes knows and both have alike.

    A later reading of our own takes its place, or the American one. The words that have a rank were read by hand.
    """
    own = {word: [code for _, code in readings] for word, readings in library.readings.items()
           if readings and word in american and word in library.said and not library.entries[word].rank}
    disputed = [word for word, codes in own.items() if not any(agree(codes[0], other) for other in american[word])]
    espeak = Espeak(disputed)
    for word in disputed:
        code = next((code for code in own[word] + american[word] if espeak.agrees(word, code)), own[word][0])
        if code != own[word][0]:
            library.add(word, code, 'ecdict' if code in own[word] else 'cmu')
            library.readings[word] = [(False, code)]
