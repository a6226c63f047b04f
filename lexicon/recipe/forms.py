"""Inflected forms: which spellings are regular, and how a regular form sounds."""
import re

from . import notation
from .notation import VOWEL_SET

VOICELESS = frozenset('p t k f W'.split())
SIBILANTS = frozenset('s z F V tF dV'.split())
VOICED = {'s': 'z', 'f': 'v', 'W': 'T'}

# Comparatives whose N has a g behind it before a vowel.
WITH_G = frozenset(('long', 'strong', 'young'))

# The kinds of form that ECDICT's `exchange` knows: plural, third person, past, participles, comparison.
ENDINGS = {'s': 's', '3': 's', 'p': 'ed', 'd': 'ed', 'i': 'ing', 'r': 'er', 't': 'est'}
VERB_KINDS = frozenset('3pdi')

# The word classes of a gloss that have the form.
VERB_CLASSES = frozenset('v vt vi aux'.split())
CLASSES = {'s': frozenset('n pl num a adj int abbr'.split()), **dict.fromkeys('3pdi', VERB_CLASSES),
           **dict.fromkeys('rt', frozenset('a ad adj adv'.split()))}

# Forms that are regular in spelling and not in sound, or that are words of their own by now.
OWN_SOUND = frozenset('says does evening contents proceeds graduates '
                      'blessed crooked dogged jagged ragged rugged wicked wretched'.split())

# First syllables that a verb leaves unstressed where the noun stresses them.
VERB_PREFIX = re.compile('(?:ab|ac|ad|af|com|con|de|dis|em|en|es|ex|im|in|ob|per|pre|pro|re|sub|sur|trans|up)[a-z]{3}')


def has_class(gloss, kind):
    """Whether a gloss names a word class that has this kind of form; a gloss that names none may be of any."""
    named = re.findall(r'(?:^|\\n)\s*([a-z]+)\.', gloss)
    if not named and kind in 'rt':
        return gloss.strip().endswith('的')
    return not named or not CLASSES[kind].isdisjoint(named)


def doubled(lemma):
    return lemma + ('k' if lemma.endswith('c') else lemma[-1])


def regular_spellings(lemma, ending):
    """Every spelling that a regular form of the lemma may have."""
    consonant_y = re.search('[^aeiou]y$', lemma)
    if ending == 's':
        found = {lemma + 's', lemma + 'es', lemma + lemma[-1] + 'es'}
        if consonant_y:
            found = {lemma[:-1] + 'ies', lemma + 's'}
        elif re.search('fe?$', lemma):
            found.add(re.sub('fe?$', 'ves', lemma))
        return found
    if ending == 'ing':
        found = {lemma + 'ing', doubled(lemma) + 'ing'}
        if lemma.endswith('ie'):
            found.add(lemma[:-2] + 'ying')
        elif lemma.endswith('e'):
            found.add(lemma[:-1] + 'ing')
        return found
    if lemma.endswith('e'):
        return {lemma + ending[1:]}
    if consonant_y:
        return {lemma[:-1] + 'i' + ending, lemma + ending}
    return {lemma + ending, doubled(lemma) + ending}


def archaic_spelling(lemma, participle, ending):
    """The form in -eth or -est of a verb, doubled as its -ing form is."""
    stem = participle.removesuffix('ing')
    if lemma.endswith('ie') or stem.endswith('e'):
        return lemma + ending[1:]
    return re.sub('(?<=[^aeiou])y$', 'i', stem) + ending


def kept_r(lemma, sounds):
    """The r that is spelled at the end of the lemma and heard again before a vowel."""
    heard = sounds[-1] in ('E', 'E:', 'C:', 'B:', 'iE', 'ZE', 'uE')
    return ['r'] if heard and re.search('re?$', lemma) else []


def full_syllable(lemma, sounds):
    """A syllabic l or n that is spelled with its vowel has it back before an ending that begins with one."""
    bare, _ = notation.separated(sounds)
    if notation.nuclei(bare)[-1] == len(bare) - 1 and bare[-1] in ('l', 'n') and re.search('[aeiou]l+$', lemma):
        return [*sounds[:-1], 'E', sounds[-1]]
    return sounds


def with_s(form, sounds):
    if form.endswith('ves') and sounds[-1] == 'f':
        sounds = [*sounds[:-1], 'v']
    last = sounds[-1]
    return sounds, ['i', 'z'] if last in SIBILANTS else ['s'] if last in VOICELESS else ['z']


def ed_sounds(sounds):
    last = sounds[-1]
    return ['i', 'd'] if last in ('t', 'd') else ['t'] if last in VOICELESS | SIBILANTS - {'z', 'V', 'dV'} else ['d']


VOWEL_ENDINGS = {'ing': ['i', 'N'], 'er': ['E'], 'est': ['i', 's', 't'], 'eth': ['i', 'W']}


def form_code(lemma, code, form, ending):
    """How a regular form sounds; `code` is the transcription of the lemma."""
    sounds = notation.sounds_of(code)
    if ending == 's':
        stem, added = with_s(form, sounds)
    elif ending == 'ed':
        stem, added = sounds, ed_sounds(sounds)
    else:
        stem = full_syllable(lemma, sounds) + kept_r(lemma, sounds)
        added = (['g'] if lemma in WITH_G and ending != 'ing' else []) + VOWEL_ENDINGS[ending]
    return notation.with_ending(stem, added)


def verb_reading(lemma, readings):
    """The verb's reading: the labelled one, one in -eit, or of two that differ in stress the later stressed."""
    labelled = [code for is_verb, code in readings if is_verb]
    codes = [code for _, code in readings]
    if labelled:
        return labelled[0]
    if lemma.endswith('ate') and len(lemma) > 6 and notation.syllable_count(codes[0]) > 2:
        return next((code for code in codes if code.endswith('eit')), re.sub('[iE]t$', 'eit', codes[0]))
    alike = [code for code in codes if notation.syllable_count(code) == notation.syllable_count(codes[0])]
    return max(alike, key=lambda code: code.find(notation.PRIMARY) if alike[0].startswith('5') else 0)


def same_but_voiced(own, generated):
    """Whether the form's own row says the generated form with a voiced sound before the ending, as in houses."""
    own, generated = notation.sounds_of(own), notation.sounds_of(generated)
    pairs = [(a, b) for a, b in zip(reversed(own), reversed(generated)) if a != b]
    inner = [pair for pair in pairs if pair != (own[-1], generated[-1])]
    return (bool(inner) and len(own) == len(generated) and all(VOICED.get(b) == a for a, b in inner)
            and (own[-1] == generated[-1] or (own[-1], generated[-1]) in (('z', 's'), ('d', 't'))))


def after_first_syllable(code):
    bare, _ = notation.separated(notation.sounds_of(code))
    return bare[notation.nuclei(bare)[1]:]


def stressed_as_verb(lemma, own, generated):
    """Whether the form's own row has the verb's stress where the generated form has the noun's."""
    return (generated.startswith(notation.PRIMARY) and own.find(notation.PRIMARY) > 0
            and bool(VERB_PREFIX.match(lemma)) and notation.syllable_count(own) > 1
            and after_first_syllable(own) == after_first_syllable(generated))


def irregular_code(word, lemma, known, partner):
    """An irregular form without a row of its own: as the same form of the word that the lemma ends in.

    `partner` gives the form of that shorter word, so that outgrew follows grew; -men follows -man.
    """
    code = known(lemma)
    if word.endswith('men') and lemma.endswith('man') and code and code.endswith('mEn'):
        return code
    for cut in range(2, len(lemma) - 1):
        tail = lemma[cut:]
        tail_code, tail_form = known(tail), partner(tail)
        if not code or not tail_code or not tail_form or word != lemma[:cut] + tail_form:
            continue
        bare_tail, form_code_ = notation.unmarked(tail_code), known(tail_form)
        if form_code_ and code.endswith(bare_tail):
            return code[:-len(bare_tail)] + notation.unmarked(form_code_)
    return ''
