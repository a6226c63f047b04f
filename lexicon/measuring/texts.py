"""Running text of four kinds, from packages of Debian, as counts of words."""
import collections
import gzip
import re
import struct
import subprocess
import zlib

from .fetch import debian_package, run

# A run of letters with apostrophes between them. What touches a digit or a sign of a path, an address or an
# identifier is part of that and no word.
WORD = re.compile(r"(?<![\w/\\@~$=_<.'-])[A-Za-z]+(?:'[A-Za-z]+)*(?![\w/\\@~$=_>]|\.\w|-\w)"
                  r"|(?<=[A-Za-z]-)[A-Za-z]+(?![\w/\\@~$=_>.])")

# A character string in R's binary form: its type with the flag for ASCII, its length, its bytes.
R_STRING = re.compile(rb'\x00\x04\x00\x09(?=(....))', re.DOTALL)


def r_strings(path):
    """All strings of a database of R objects: blocks of a length, then a zlib stream."""
    data, place = path.read_bytes(), 0
    while place + 4 < len(data):
        stream = zlib.decompressobj()
        block = stream.decompress(data[place + 4:])
        place = len(data) - len(stream.unused_data)
        for match in R_STRING.finditer(block):
            length, = struct.unpack('>i', match[1])
            yield block[match.end() + 4:match.end() + 4 + max(length, 0)].decode('ascii')


def novels(cache):
    """The six novels of Jane Austen."""
    folder = debian_package('r-cran-janeaustenr', cache)
    return '\n'.join(r_strings(folder / 'usr/lib/R/site-library/janeaustenr/data/Rdata.rdb'))


def bible(cache):
    """The King James version, without the names of the books and the numbers."""
    program = debian_package('bible-kjv', cache) / 'usr/bin/bible'
    data = debian_package('bible-kjv-text', cache) / 'usr/lib'
    text = run(program, '-p', data, 'gen1:1-rev22:21', folder=data, text=True, stderr=subprocess.DEVNULL)
    return re.sub(r'^\S+ ', '', text, flags=re.MULTILINE)


def fortunes(cache):
    """Sayings, jokes and quotations."""
    files = [file for name in ('fortunes-min', 'fortunes')
             for file in sorted((debian_package(name, cache) / 'usr/share/games/fortunes').iterdir())
             if not file.suffix and 'art' not in file.name and not file.is_symlink()]
    return '\n'.join(file.read_text(encoding='utf-8', errors='replace') for file in files)


def technical(cache):
    """Manuals: how Debian is made and used, and the vocabulary of programmers."""
    paths = (('debian-reference-en', 'usr/share/debian-reference/debian-reference.en.txt.gz'),
             ('debian-policy', 'usr/share/doc/debian-policy/policy.txt.gz'),
             ('developers-reference', 'usr/share/developers-reference/developers-reference.txt.gz'),
             ('jargon-text', 'usr/share/doc/jargon-text/jargon.txt.gz'))
    files = [debian_package(name, cache) / path for name, path in paths]
    return '\n'.join(gzip.decompress(file.read_bytes()).decode('utf-8', errors='replace') for file in files)


def word_counts(cache):
    """For each kind of text how often each word stands in it, in lower case."""
    texts = {'novels': novels, 'Bible': bible, 'fortunes': fortunes, 'technical': technical}
    return {kind: collections.Counter(word.lower() for word in WORD.findall(read(cache).replace('’', "'")))
            for kind, read in texts.items()}
