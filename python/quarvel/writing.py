"""Writing a model, and the receipt of what the file keeps."""

from __future__ import annotations

import dataclasses
from typing import Any, Callable, Optional

from . import _core
from .errors import UnwrittenFile, ValueRefused, WriteError
from .paths import Path, named

Progress = Callable[[float, float], Optional[bool]]
_WRITTEN, _NOTHING, _LOSSES, _NOT_SAME, _FAILED = range(5)
_REASONS = {
    _NOTHING: "there are no coefficients, and a file without them is no model",
    _LOSSES: "the file would not keep the model",
    _NOT_SAME: "what was written was read back as something else"}


@dataclasses.dataclass(frozen=True)
class Loss:
    """What a layout does not keep of a model: all losses of one kind."""

    weight: str
    """"breaks", "changes" or "noted"; the last makes no other model, but for digits."""
    name: str
    count: int
    sentences: tuple[str, ...]
    """Of the first three."""


@dataclasses.dataclass(frozen=True)
class Receipt:
    """What was written, and what of it came back when it was read again."""

    rows: int
    columns: int
    elements: int
    is_read_again: bool
    equal_rows: int
    equal_columns: int
    equal_elements: int
    losses: tuple[Loss, ...]
    unexpected: tuple[str, ...]
    fits_fixed_columns: bool
    is_whole: bool
    """The file gives back all there is."""


def _in_python(sentence: str) -> str:
    """Sentences name the options as the command has them."""
    return sentence.replace("--layout free", 'layout="free"')


def _receipt(told: dict[str, Any]) -> Receipt:
    fields = {field.name: told[field.name] for field in dataclasses.fields(Receipt)}
    losses = (Loss(**loss) for loss in told["losses"])
    fields["losses"] = tuple(dataclasses.replace(loss, sentences=tuple(map(_in_python, loss.sentences))) for loss in losses)
    return Receipt(**fields)


def write(core: _core.Model, path: Path, layout: str, allow_changes: bool, strict: bool,
          progress: Optional[Progress]) -> Receipt:
    name, encoded = named(path)
    if not name:
        raise ValueRefused("The path is empty")
    if layout not in ("free", "fixed", "component"):
        raise ValueRefused(f'There is no layout {layout!r}: "free", "fixed", "component"')
    options = {"layout": int(layout == "component"), "allow_changes": bool(allow_changes),
               "strict": bool(strict)}
    if layout == "fixed":
        receipt = _checked(core.write_bytes(options, None)[1], name)
        if not receipt.fits_fixed_columns:
            raise WriteError(f"{name} was not written: names or values do not fit fixed columns", receipt)
    return _checked(core.write_file(encoded, options, progress), name)


def to_bytes(core: _core.Model, layout: str, allow_changes: bool, strict: bool) -> bytes:
    if layout not in ("free", "component"):
        raise ValueRefused(f'There is no layout {layout!r}: "free", "component"')
    options = {"layout": int(layout == "component"), "allow_changes": bool(allow_changes),
               "strict": bool(strict)}
    text, told = core.write_bytes(options, None)
    _checked(told, "the text")
    return text


def _checked(told: dict[str, Any], name: str) -> Receipt:
    receipt = _receipt(told)
    if told["outcome"] == _WRITTEN:
        return receipt
    reason = "it was stopped" if told["is_stopped"] else told["failure"] or _REASONS.get(told["outcome"], "the system says no more")
    if told["outcome"] == _LOSSES and receipt.losses:
        reason += ": " + receipt.losses[0].sentences[0]
    notes = " ".join(told["notes"].split())
    kind = UnwrittenFile if told["failure"] and not told["is_stopped"] else WriteError
    raise kind(f"{name} was not written: {reason}" + (f" ({notes})" if notes else ""), receipt)
