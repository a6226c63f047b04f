"""Makes the rows of the library: transcriptions of the headwords, then of their forms and possessives."""
import collections
import re
from dataclasses import dataclass

from . import british, derived, doubt, forms, hand, marks, notation, phonetics, votes
from .entries import Entry
from .notation import Refused

POSSESSIVE_RANK = 50000
MUCH = 4  # how many times more frequent one of a lemma and its form has to be to outweigh the other

# The long vowel of path, dance and sample.
BATH = re.compile('B:(?:[fsW]|n[tsdF]|mpl|T)')

# Sources whose transcriptions nothing later may change.
FINAL = ('hand', 'contraction')


@dataclass
class Tables:
    """What the library is made from besides ECDICT."""
    contractions: dict
    overrides: dict
    homographs: dict
    american: dict
    glosses: dict  # what a gloss begins with where the first sense of ECDICT is not the common one
    classics: frozenset  # words that old books are full of, whatever their rank


@dataclass
class Said:
    """A transcription and where it comes from."""
    code: str
    source: str


def british_first(readings):
    """Leaves out the American reading with A where another has the long B: and is otherwise the same."""
    long = {code.replace('B:', 'A') for _, code in readings if BATH.search(code)}
    kept = [reading for reading in readings if reading[1] not in long]
    return sorted(kept, key=lambda reading: reading[1].replace('B:', 'A') != readings[0][1]) if len(
        kept) < len(readings) else readings


class Library:
    """The library while it is made; `refused` counts the transcriptions that were dropped, by reason."""

    def __init__(self, entries, tables):
        self.entries = entries
        self.tables = tables
        self.readings = {}
        self.said = {}
        self.lemmas = {}
        self.homographs = {}
        self.refused = collections.Counter()

    def known(self, word):
        said = self.said.get(word)
        return said.code if said else ''

    def add(self, word, code, source):
        self.said[word] = Said(code, source)

    def is_final(self, word):
        return word in self.said and self.said[word].source in FINAL

    def is_verb(self, word):
        entry = self.entries.get(word)
        return bool(entry) and forms.has_class(entry.gloss, 'p')

    def is_personal_name(self, word):
        entry = self.entries[word]
        return entry.is_name or '人名' in entry.gloss

    def wanting(self):
        """The words worth a row that have no transcription."""
        return [word for word, entry in self.entries.items()
                if word not in self.said and (entry.rank or entry.levels or word in self.lemmas)]

    def is_worth_a_gloss(self, word, entry):
        return bool(entry.gloss and (entry.rank or entry.levels or self.known(self.lemmas.get(word, ''))))

    def rank(self, word):
        entry = self.entries.get(word)
        return entry.rank if entry and entry.rank else 10 ** 6

    def read_phonetics(self):
        for word, entry in self.entries.items():
            if not entry.phonetic:
                continue
            try:
                readings = british_first(phonetics.readings_of(word, entry.phonetic))
                self.readings[word] = readings
                self.said[word] = Said(readings[0][1], 'ecdict')
            except Refused as refusal:
                self.refused[str(refusal)] += 1

    def links(self):
        """For each form its possible (lemma, kind of form), from the rows of the lemmas and its own."""
        found = collections.defaultdict(list)
        for word, entry in self.entries.items():
            for kind, form in entry.forms:
                if kind in forms.ENDINGS and not self.is_mere_form(entry) and self.may_have(entry, form, kind):
                    found[form].append((word, kind))
            lemma = self.entries.get(entry.lemma if self.known(entry.lemma) else self.with_final_e(entry.lemma))
            for kind in entry.form_kinds if lemma else '':
                if kind in forms.ENDINGS and self.may_have(lemma, word, kind):
                    found[word].append((lemma.word, kind))
        for word, entry in self.entries.items():
            if word not in found and word not in self.said and (entry.rank or entry.levels):
                found.update(self.implied_link(word))
        return found

    def with_final_e(self, lemma):
        """ECDICT makes dens of denser; a lemma nobody knows is tried with the e that was lost."""
        return lemma + 'e' if lemma and self.known(lemma + 'e') else lemma

    def implied_link(self, word):
        """The link of a word that nothing calls a form, though it is spelled as one and has no row to read."""
        for ending, kind in (('s', 's'), ('ed', 'p'), ('ing', 'i')):
            for stem in doubt.stems(word, ending, ('', 'e')) if word.endswith(ending) else ():
                lemma = self.entries.get(stem)
                if self.known(stem) and word in forms.regular_spellings(stem, ending) and len(stem) > 2 and (
                        forms.has_class(lemma.gloss, kind) if lemma else False):
                    return {word: [(stem, kind)]}
        return {}

    def may_have(self, lemma, form, kind):
        entry = self.entries.get(form)
        vouched = kind not in 'rt' and entry and (entry.rank or entry.levels)
        return bool(vouched) or forms.has_class(lemma.gloss, kind)

    def is_mere_form(self, entry):
        """Plurals and pasts have no forms of their own, nor have pronouns, whatever their rows say."""
        past_or_plural = entry.lemma and re.search('[spd3]', entry.form_kinds) and not entry.levels
        return past_or_plural or 's' in entry.form_kinds or entry.gloss.startswith('pron.')

    def link_of(self, form, candidates):
        """The lemma of a form: the most frequent, unless the form is the more frequent word of the two."""
        lemma, kind = min(candidates, key=lambda c: (not self.known(c[0]), self.rank(c[0]), c[0], c[1]))
        if kind in 'rt' and self.rank(form) * MUCH < self.rank(lemma):
            return None
        if (lemma, 's') in candidates and self.entries[lemma].gloss.startswith('n.'):
            kind = 's'
        if kind in 's3' and lemma in self.homographs:
            kind = '3' if self.homographs[lemma][0].word_class == 'v' else 's'
        return lemma, kind

    def add_forms(self):
        found = self.links()
        kept = {}
        for form in sorted(found):
            link = self.link_of(form, found[form])
            if link:
                self.lemmas[form] = link[0]
                kept[form] = link
        partners = {(lemma, kind): form for form, (lemma, kind) in kept.items()}
        # Lemmas before their forms, so that evenings follows evening whatever evening comes from.
        for form, (lemma, kind) in sorted(kept.items(), key=lambda item: (item[1][0] in kept, item[0])):
            self.add_form(form, lemma, kind, lambda word, k=kind: partners.get((word, k), ''))

    def add_form(self, form, lemma, kind, partner):
        if self.is_final(form):
            return
        ending = forms.ENDINGS[kind]
        own = self.known(form)
        if form not in forms.regular_spellings(lemma, ending):
            if not own or own == self.known(lemma):
                code = forms.irregular_code(form, lemma, self.known, partner)
                if code:
                    self.said[form] = Said(code, 'form')
            return
        generated = self.generated(lemma, form, kind)
        if generated and not self.own_row_counts(form, lemma, kind, generated):
            self.said[form] = Said(generated, 'form')

    def verb_code(self, word):
        """The transcription of a word as a verb."""
        if word in self.homographs:
            return next((r.code for r in self.homographs[word] if r.word_class == 'v'), self.known(word))
        if self.known(word) and self.lemma_is_read(word):
            return forms.verb_reading(word, self.readings[word])
        return self.known(word)

    def generated(self, lemma, form, kind):
        if lemma in self.homographs:
            code = self.add_form_readings(lemma, form, kind)
        else:
            code = self.verb_code(lemma) if kind in forms.VERB_KINDS else self.known(lemma)
        try:
            return forms.form_code(lemma, code, form, forms.ENDINGS[kind]) if code else ''
        except Refused:
            return ''

    def add_form_readings(self, lemma, form, kind):
        """Gives the reading that a form has of a word with several, and notes those of the form where they differ."""
        classes = ('n', 'v') if kind in 's3' else ('v',) if kind in 'pdi' else ('a', 'ad')
        fitting = [reading for reading in self.homographs[lemma] if reading.word_class in classes]
        fitting = fitting or self.homographs[lemma][:1]
        of_form = {forms.form_code(lemma, reading.code, form, forms.ENDINGS[kind]): reading
                   for reading in reversed(fitting)}
        if len(of_form) > 1:
            self.homographs[form] = [hand.Reading(code, reading.word_class, reading.sense)
                                     for code, reading in reversed(of_form.items())]
        return fitting[0].code

    def lemma_is_read(self, lemma):
        return self.said[lemma].source == 'ecdict'

    def own_row_counts(self, form, lemma, kind, generated):
        """Whether the form's own row is to be believed before the regular form."""
        own = self.known(form)
        if own in ('', generated, self.known(lemma)):
            return False
        if forms.same_but_voiced(own, generated) or form in forms.OWN_SOUND or own.replace('B:', 'A') == generated:
            return True
        if self.rank(form) * MUCH < self.rank(lemma):
            return True
        if self.is_final(lemma) or own[-2:] != generated[-2:]:
            return False
        return (kind in 'pdi' and forms.stressed_as_verb(lemma, own, generated)
                or self.is_other_reading(form, lemma, kind, own))

    def is_other_reading(self, form, lemma, kind, own):
        """Whether the form's own row goes with a later reading of the lemma, where nothing told the verb's."""
        codes = [code for _, code in self.readings.get(lemma, ())]
        if kind not in 'pdi' or len(codes) < 2 or forms.verb_reading(lemma, self.readings[lemma]) != codes[0]:
            return False
        return own in [forms.form_code(lemma, code, form, forms.ENDINGS[kind]) for code in codes[1:]]

    def mend_endings(self):
        """Gives their ending to words whose row has the sounds of the word without it."""
        kinds = {'s': 's', 'ed': 'p', 'ing': 'i', 'er': 'r'}
        for word in sorted(self.said):
            stem = doubt.word_without_ending(word, self.said[word].code, self.known)
            ending = next((e for e in kinds if stem and word.endswith(e)), '')
            if ending and word in forms.regular_spellings(stem, ending):
                self.said[word] = Said(forms.form_code(stem, self.known(stem), word, ending), 'form')
                self.lemmas.setdefault(word, stem)
            elif stem:
                self.drop(word, 'sounds of the word without its ending')

    def code_in_forms(self, word):
        """The transcription of a word as its -s or -ing form has it in a row of its own, if that can be believed."""
        plural = '(?<=[szFV])iz$' if re.search('[cgsz]e$|che$', word) else '[sz]$'
        for ending, sounds in (('s', plural), ('ing', 'r?iN$')):
            found = re.search(sounds, self.known(word + ending))
            if found and not word.endswith(ending):
                try:
                    code = notation.written(notation.sounds_of(found.string[:found.start()]))
                    doubt.check_against_letters(word, code)
                    return code
                except Refused:
                    pass
        return ''

    def read_from_forms(self):
        """Takes from its forms what a word lacks: its transcription, or a consonant that was lost in its row."""
        for word in self.wanting():
            self.take_from_form(word, self.code_in_forms(word))
        doubtful = [word for word in self.said if word.isalpha() and not self.is_final(word)
                    and doubt.fit(word, self.known(word)) < 1]
        for word in doubtful:
            own, code = self.known(word), self.code_in_forms(word)
            if code and code.startswith(own[:2]) and doubt.fit(word, code) > doubt.fit(word, own):
                self.take_from_form(word, code)

    def take_from_form(self, word, code):
        if code:
            self.said[word] = Said(code, 'form')
            self.readings.pop(word, None)

    def drop(self, word, reason):
        del self.said[word]
        self.refused[reason] += 1

    def drop_doubtful(self):
        for word in sorted(self.said):
            try:
                notation.check(self.said[word].code)
                if self.said[word].source in ('ecdict', 'cmu'):
                    doubt.check_against_letters(word, self.said[word].code)
            except Refused as refusal:
                self.drop(word, str(refusal))

    def mend_sounds(self):
        for word, said in self.said.items():
            if said.source not in FINAL:
                said.code = british.mended(word, said.code, self.known)
                self.readings[word] = [(is_verb, british.mended(word, code, self.known))
                                       for is_verb, code in self.readings.get(word, ())]

    def add_american(self, american):
        """Takes the words that ECDICT lists without a phonetic from the American dictionary."""
        for word, entry in self.entries.items():
            unknown = word not in self.said and word not in self.tables.overrides
            if word in american and unknown and word.isalpha() and len(word) > 2:
                self.add(word, british.mended(word, american[word][0], self.known), 'cmu')

    def set_marks(self):
        for word, said in self.said.items():
            if said.source not in FINAL:
                said.code = marks.settled(word, said.code, self.known)

    def make_british(self):
        """Gives a word its long B: when a form of it has that in its own row: pass after passed."""
        for word, entry in self.entries.items():
            code = self.known(word)
            place = notation.unmarked(code).find('A') if code.count('A') == 1 else -1
            long = notation.unmarked(code).replace('A', 'B:')
            in_forms = (notation.unmarked(self.known(form)) for _, form in entry.forms)
            if place >= 0 and BATH.search(long) and any(form.startswith(long) for form in in_forms):
                self.said[word].code = code.replace('A', 'B:')
                self.readings[word] = [(False, code.replace('A', 'B:'))]

    def add_possessives(self):
        for word, entry in self.entries.items():
            form, noun = word + "'s", entry.is_name or re.search(r'(?:^|\\n)n\.', entry.gloss)
            plain = word not in self.lemmas or entry.gloss.startswith('n.') and not word.endswith(('s', 'ing'))
            common = 0 < entry.rank <= POSSESSIVE_RANK and (entry.is_name or plain)
            if (noun and common and self.known(word) and word.isalpha() and len(form) <= 20
                    and form not in self.said):
                try:
                    self.add(form, forms.form_code(word, self.known(word), form, 's'), 'form')
                    self.lemmas[form] = word
                except Refused:
                    pass

    def readings_column(self, word):
        """The readings of a word that has several, each with its class, the first as in the column before."""
        readings = self.homographs.get(word, ())
        return '; '.join(f'{reading.label()} {reading.code}' for reading in readings)

    def rows(self):
        """The rows of the library, sorted by word; a lemma is named if it has a row as well."""
        words = {word for word, entry in self.entries.items() if self.is_worth_a_gloss(word, entry)} | self.said.keys()
        for word in sorted(words):
            entry = self.entries.get(word, Entry(word))
            said = self.said.get(word, Said('', ''))
            lemma = self.lemmas.get(word, '')
            levels = f'{entry.levels} classic'.strip() if word in self.tables.classics else entry.levels
            gloss = '\\n'.join(filter(None, (self.tables.glosses.get(word), entry.gloss)))
            yield (word, said.code, self.readings_column(word), said.source, lemma if lemma in words else '',
                   str(entry.rank or ''), levels, gloss)


def made(entries, tables):
    library = Library(entries, tables)
    library.read_phonetics()
    library.mend_endings()
    library.drop_doubtful()
    library.mend_sounds()
    library.make_british()
    votes.settle(library, tables.american)
    hand.add(library, tables)
    library.read_from_forms()
    library.add_forms()
    derived.add(library)
    library.add_american(tables.american)
    library.add_forms()
    derived.add(library)
    derived.add_archaic(library)
    library.add_possessives()
    for word, code in tables.contractions.items():
        library.add(word, code, 'contraction')
    library.drop_doubtful()
    library.mend_sounds()
    library.set_marks()
    return library
