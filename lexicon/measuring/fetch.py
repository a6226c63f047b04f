"""Fetches the data that the library is measured with; nothing of it goes into the library."""
import pathlib
import subprocess
import sys
import tarfile


def run(*command, folder, **options):
    return subprocess.run(command, cwd=folder, check=True, stdout=subprocess.PIPE, **options).stdout


def say(text):
    print(text, file=sys.stderr)


def npm_package(name, cache):
    """The folder of an npm package, given as name@version, in the cache."""
    place = pathlib.Path(cache, 'npm', name)
    if not place.exists():
        say(f'fetching {name} by npm')
        place.mkdir(parents=True)
        archive = run('npm', 'pack', '--silent', name, folder=place, text=True).split()[-1]
        with tarfile.open(place / archive) as file:
            file.extractall(place)
        (place / archive).unlink()
    return place / 'package'


def debian_package(name, cache):
    """The folder that holds the files of a Debian package; nothing is installed."""
    place = pathlib.Path(cache, 'debian', name)
    if not place.exists():
        say(f'fetching {name} by apt')
        download = place.parent / 'download'
        download.mkdir(parents=True, exist_ok=True)
        run('apt-get', 'download', '-qq', name, folder=download, stderr=subprocess.DEVNULL)
        archive = next(download.glob(f'{name}_*.deb'))
        run('dpkg-deb', '-x', archive, place, folder=cache)
        archive.unlink()
    return place
