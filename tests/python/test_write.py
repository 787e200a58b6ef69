"""Writing: layouts, receipts, packed files, what is refused."""

import gzip
import os
import signal

import pytest
import quarvel

from conftest import SMALL, large, python, wait_until


def test_what_is_written_is_read_again(tmp_path):
    m = quarvel.read(SMALL)
    names = ["a.mps", "a.mps.bz2", "a.mps.gz", "a.mps.xz", "a.mps.zst"]
    for name in names:
        receipt = m.write(tmp_path / name)
        assert (receipt.losses, receipt.is_whole, receipt.equal_elements) == ((), True, 8)
        assert m.path == str(tmp_path / name)
        assert not quarvel.diff(m, tmp_path / name)
    assert gzip.decompress((tmp_path / "a.mps.gz").read_bytes()) == (tmp_path / "a.mps").read_bytes() == m.to_bytes()
    for name, first in zip(names[1:], (b"BZh", b"\x1f\x8b", b"\xfd7zXZ", b"\x28\xb5\x2f\xfd")):
        assert (tmp_path / name).read_bytes().startswith(first)
    assert sorted(os.listdir(tmp_path)) == names


def test_fixed_columns_are_promised_or_refused(tmp_path):
    m = quarvel.read(SMALL)
    assert m.write(tmp_path / "a.mps", layout="fixed").fits_fixed_columns
    with m.edit() as e:
        e.rename_column("X", "A_NAME_OF_MORE_THAN_EIGHT_CHARACTERS")
    with pytest.raises(quarvel.WriteError, match="fixed columns"):
        m.write(tmp_path / "b.mps", layout="fixed")
    assert not (tmp_path / "b.mps").exists()
    assert not m.write(tmp_path / "b.mps").fits_fixed_columns
    with pytest.raises(quarvel.ValueRefused):
        m.write(tmp_path / "c.mps", layout="round")


def test_losses_are_refused_or_told(tmp_path):
    m = quarvel.read(SMALL)
    with pytest.raises(quarvel.WriteError) as raised:
        m.write(tmp_path / "a.mps", layout="component")
    assert raised.value.receipt.losses and not (tmp_path / "a.mps").exists()
    assert m.write(tmp_path / "a.mps", layout="component", allow_changes=True).losses


def test_nothing_and_nowhere_are_told(tmp_path):
    with pytest.raises(quarvel.WriteError, match="no coefficients"):
        quarvel.Model().write(tmp_path / "a.mps")
    m = quarvel.read(SMALL)
    with pytest.raises(quarvel.WriteError):
        m.write(tmp_path / "none" / "a.mps")
    with pytest.raises(quarvel.WriteError):
        m.write(tmp_path / "none" / "a.mps.gz")


def test_packed_files_keep_their_fixed_columns_and_their_rights(tmp_path):
    m = quarvel.read(SMALL)
    path = tmp_path / "a.mps.zst"
    path.write_bytes(b"")
    path.chmod(0o640)
    assert m.write(path, layout="fixed").fits_fixed_columns
    assert path.stat().st_mode & 0o777 == 0o640 and not quarvel.diff(m, path)


@pytest.mark.parametrize("ending", ["", ".gz", ".zst"])
def test_progress_of_a_write_goes_from_nothing_to_all(tmp_path, ending):
    m = quarvel.read(large())
    bar = Bar()
    m.write(tmp_path / ("a.mps" + ending), progress=bar.update_to)
    assert bar.heard[0] < 1 and bar.heard == sorted(bar.heard) and bar.n == 1


class Bar:
    """As a bar of tqdm is used: it is told of steps."""

    def __init__(self):
        self.n = 0.0
        self.heard = []

    def update_to(self, done, all):
        assert all == 1.0
        self.heard.append(done)
        self.update(done - self.n)

    def update(self, step):
        self.n += step


def test_a_bar_of_tqdm_is_moved(tmp_path):
    tqdm = pytest.importorskip("tqdm")
    with tqdm.tqdm(total=1.0, disable=False, file=open(os.devnull, "w")) as bar:
        quarvel.read(SMALL).write(tmp_path / "a.mps", progress=lambda done, all: bar.update(done - bar.n))
        assert bar.n == 1


@pytest.mark.parametrize("ending", ["", ".bz2"])
def test_a_write_that_is_given_up_leaves_the_old_file(tmp_path, ending):
    path = tmp_path / ("a.mps" + ending)
    path.write_bytes(b"old")
    m = quarvel.read(large())
    with pytest.raises(quarvel.WriteError, match="it was stopped"):
        m.write(path, progress=lambda done, all: False)
    # Stopped while what was written is read again.
    with pytest.raises(quarvel.WriteError, match="it was stopped"):
        m.write(path, progress=lambda done, all: done < 0.5)
    with pytest.raises(ZeroDivisionError):
        m.write(path, progress=lambda done, all: 1 // 0)
    assert path.read_bytes() == b"old" and os.listdir(tmp_path) == [path.name] and m.path == ""
    assert m.write(path).is_whole


WRITER = """
import quarvel, sys
m = quarvel.read(sys.argv[1])
print("read", flush=True)
m.write(sys.argv[2])
"""


@pytest.mark.parametrize("ending", ["", ".gz", ".xz", ".zst"])
def test_ctrl_c_ends_a_write_and_leaves_the_old_file(tmp_path, ending):
    source, folder = tmp_path / "large.mps", tmp_path / "folder"
    source.write_bytes(large(400000))
    folder.mkdir()
    path = folder / ("a.mps" + ending)
    path.write_bytes(b"old")
    process = python(WRITER, source, path)
    assert process.stdout.readline() == "read\n"
    wait_until(lambda: len(os.listdir(folder)) > 1 or process.poll() is not None)
    process.send_signal(signal.SIGINT)
    assert process.communicate(timeout=120)[1].splitlines()[-1] == "KeyboardInterrupt"
    assert process.returncode == -signal.SIGINT
    assert path.read_bytes() == b"old" and os.listdir(folder) == [path.name]
