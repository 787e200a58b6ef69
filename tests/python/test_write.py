"""Writing: layouts, receipts, packed files, what is refused."""

import gzip
import os

import pytest
import quarvel

from conftest import SMALL


def test_what_is_written_is_read_again(tmp_path):
    m = quarvel.read(SMALL)
    for name in ("a.mps", "a.mps.gz", "a.mps.bz2", "a.mps.xz"):
        receipt = m.write(tmp_path / name)
        assert (receipt.losses, receipt.is_whole, receipt.equal_elements) == ((), True, 8)
        assert m.path == str(tmp_path / name)
        assert not quarvel.diff(m, tmp_path / name)
    assert gzip.decompress((tmp_path / "a.mps.gz").read_bytes()) == (tmp_path / "a.mps").read_bytes() == m.to_bytes()
    assert sorted(os.listdir(tmp_path)) == ["a.mps", "a.mps.bz2", "a.mps.gz", "a.mps.xz"]


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
    with pytest.raises(quarvel.FileError):
        m.write(tmp_path / "none" / "a.mps.gz")
