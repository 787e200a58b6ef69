"""The interface of the automation component Quarvel.LPModel for Python.

All members by their names, with the numbers, refusals and errors that scripts of the automation object know.
The members and their arguments are those of the one list that the automation object is made from.
"""

from __future__ import annotations

import inspect
from types import SimpleNamespace
from typing import Any

from . import _component
from ._desktop import (CANCEL, NO, OK, YES, Box, Choice, ConsoleDesktop, Desktop, FileDialog,
                       ScriptedDesktop)
from .errors import Error

__all__ = [
    "CANCEL", "NO", "OK", "YES", "Box", "Choice", "ConsoleDesktop", "Desktop", "Dispatch", "FileDialog", "LPModel",
    "LPModelError", "ScriptedDesktop", "VARIANT", "gencache", "pythoncom", "pywintypes",
]

_DISP_E_EXCEPTION = -2147352567
_CO_E_CLASSSTRING = -2147221005


class LPModelError(Error):
    """What a member raises: the component's number, source and description.

    Numbers up to 65535 are the general ones that script hosts show (9, 13, 53 ...). `hresult` and
    `excepinfo` are what pywin32's com_error has.
    """

    def __init__(self, number: int, source: str, description: str) -> None:
        super().__init__(number, source, description)
        self.number = number
        self.source = source
        self.description = description

    @property
    def hresult(self) -> int:
        return _DISP_E_EXCEPTION

    @property
    def strerror(self) -> str:
        return "Exception occurred."

    @property
    def excepinfo(self) -> tuple[int, str, str, None, int, int]:
        code = self.number if self.number < 0 else self.number + 0x800A0000 - 2**32
        return (0, self.source, self.description, None, 0, code)

    def __str__(self) -> str:
        shown = str(self.number) if self.number >= 0 else f"0x{self.number + 2**32:08X}"
        place = f" from {self.source}" if self.source else ""
        return f"{self.description} (error {shown}{place})"


class VARIANT:
    """A value that is passed by reference: a member that hands something back leaves it in `value`."""

    def __init__(self, varianttype: int, value: Any) -> None:
        self.varianttype = varianttype
        self.value = value

    def __repr__(self) -> str:
        return f"VARIANT({self.varianttype}, {self.value!r})"


class _Entry:
    """One entry of the list: a member by its kind."""

    def __init__(self, number: int, row: tuple[Any, ...]) -> None:
        self.number = number
        self.name, self.kind, arguments, self.result, self.help, _ = row
        self.arguments = [words.split()[1] for words in arguments.split(", ") if words]
        # A variable for the answer is only written: nobody needs to have one.
        self.optional = 1 if self.arguments[-1:] == ["Answer"] else 0
        self.signature = inspect.Signature([
            inspect.Parameter(name, inspect.Parameter.POSITIONAL_OR_KEYWORD,
                              default=None if self._may_be_missing(i) else inspect.Parameter.empty)
            for i, name in enumerate(self.arguments)])

    def _may_be_missing(self, place: int) -> bool:
        return place >= len(self.arguments) - self.optional

    def call(self, model: "LPModel", given: tuple[Any, ...], named: dict[str, Any]) -> Any:
        if named or len(given) != len(self.arguments):
            given = self._bind(given, named)
        return model._core.call(self.number, *given)

    def _bind(self, given: tuple[Any, ...], named: dict[str, Any]) -> tuple[Any, ...]:
        spelled = {name.lower(): name for name in self.arguments}
        named = {spelled.get(name.lower(), name): value for name, value in named.items()}
        try:
            bound = self.signature.bind(*given, **named)
        except TypeError as error:
            raise TypeError(f"{self.name}{self.signature}: {error}") from None
        bound.apply_defaults()
        return bound.args


class _Indexed:
    """A property with arguments, of one model: model.RowName(1) or model.RowName[1]."""

    __slots__ = ("_model", "_entry")

    def __init__(self, model: "LPModel", entry: _Entry) -> None:
        self._model = model
        self._entry = entry

    def __call__(self, *given: Any, **named: Any) -> Any:
        return self._entry.call(self._model, given, named)

    def __getitem__(self, key: Any) -> Any:
        if self._entry.kind != "get":
            raise TypeError(f"{self._entry.name} is written, not read")
        return self(*(key if isinstance(key, tuple) else (key,)))

    def __setitem__(self, key: Any, value: Any) -> None:
        if self._entry.kind != "let":
            raise TypeError(f"{self._entry.name} is read, not written")
        self(*(key if isinstance(key, tuple) else (key,)), value)


class _Property:
    """What a model has under the name of a property."""

    def __init__(self, kinds: dict[str, _Entry]) -> None:
        self._get, self._let = kinds.get("get"), kinds.get("let")
        entry = self._get or self._let
        assert entry is not None
        self._name = entry.name
        self.__doc__ = entry.help
        values = 1 if self._get is None else 0
        self._is_plain = len(entry.arguments) == values

    def __get__(self, model: "LPModel | None", owner: type) -> Any:
        if model is None:
            return self
        if self._get is None:
            assert self._let is not None
            return _Indexed(model, self._let)
        return self._get.call(model, (), {}) if self._is_plain else _Indexed(model, self._get)

    def __set__(self, model: "LPModel", value: Any) -> None:
        if self._let is None or not self._is_plain:
            raise AttributeError(f"{self._name} cannot be assigned to")
        self._let.call(model, (value,), {})


def _method(entry: _Entry, name: str) -> Any:
    def method(self: "LPModel", *given: Any, **named: Any) -> Any:
        return entry.call(self, given, named)

    method.__name__ = name
    method.__qualname__ = f"LPModel.{name}"
    method.__doc__ = entry.help
    me = inspect.Parameter("self", inspect.Parameter.POSITIONAL_ONLY)
    method.__signature__ = inspect.Signature([me, *entry.signature.parameters.values()])  # type: ignore[attr-defined]
    return method


def _checked(desktop: Desktop | None) -> Desktop:
    if desktop is None:
        return ConsoleDesktop()
    if not isinstance(desktop, Desktop):
        raise TypeError(f"a desktop is a Desktop, not a {type(desktop).__name__}")
    return desktop


class LPModel:
    """One LP or MIP model, read from MPS files, queried, edited, simplified and saved.

    `desktop` answers what the model asks: a Desktop; without one, standard error and the terminal. All
    numbers of rows, columns and elements start at 0. Names are found in any case.
    """

    __slots__ = ("_core", "_show_form", "__weakref__")

    def __init__(self, desktop: Desktop | None = None) -> None:
        self._core = _component.Core(_checked(desktop))
        self._show_form: Any = None

    @property
    def desktop(self) -> Desktop:
        """Who answers what the model asks."""
        answers: Desktop = self._core.desktop
        return answers

    @desktop.setter
    def desktop(self, desktop: Desktop | None) -> None:
        self._core.desktop = _checked(desktop)

    @property
    def showFrm(self) -> Any:
        """Keeps a value of the script's, which the component never looks at."""
        return self._show_form

    @showFrm.setter
    def showFrm(self, value: Any) -> None:
        self._show_form = value

    def __getattr__(self, name: str) -> Any:
        spelled = _SPELLED.get(name.lower())
        if spelled is None or spelled == name:
            raise AttributeError(f"LPModel has no member {name}")
        return getattr(self, spelled)

    def __setattr__(self, name: str, value: Any) -> None:
        if not hasattr(type(self), name):
            spelled = _SPELLED.get(name.lower())
            if spelled is None:
                raise AttributeError(f"LPModel has no member {name}")
            name = spelled
        object.__setattr__(self, name, value)

    def __repr__(self) -> str:
        try:
            return (f"<LPModel {self.ModelName!r}: {self.NumberOfRows} rows, {self.NumberOfColumns} columns, "
                    f"{self.NumberOfElements} elements>")
        except LPModelError as error:
            return f"<LPModel: {error.description}>"

    def __reduce_ex__(self, protocol: Any) -> Any:
        raise TypeError("an LPModel is neither copied nor pickled: save it and read it")


def _add_members() -> dict[str, str]:
    """Gives the class its members; their names by those in small letters."""
    kinds: dict[str, dict[str, _Entry]] = {}
    for number, row in enumerate(_component.members()):
        entry = _Entry(number, row)
        kinds.setdefault(entry.name, {})[entry.kind] = entry
    names = list(kinds)
    for name, entries in kinds.items():
        if name == "showFrm":
            continue
        if "method" in entries:
            setattr(LPModel, name, _method(entries["method"], name))
            continue
        setattr(LPModel, name, _Property(entries))
        if name.startswith("Set"):
            # What pywin32 calls the write of a property with arguments.
            names.append("Set" + name)
            setattr(LPModel, names[-1], _method(entries["let"], names[-1]))
    return {name.lower(): name for name in names}


_SPELLED = _add_members()


def Dispatch(name: str, *unused: Any, **unused_named: Any) -> LPModel:
    """A new model, as scripts of the automation object make theirs."""
    if name.lower() != "quarvel.lpmodel":
        raise LPModelError(_CO_E_CLASSSTRING, "", f"Invalid class string: {name}")
    return LPModel()


# What scripts for pywin32 import beside it.
pythoncom = SimpleNamespace(com_error=LPModelError, VT_EMPTY=0, VT_NULL=1, VT_I2=2, VT_I4=3, VT_R4=4, VT_R8=5,
                            VT_BSTR=8, VT_BOOL=11, VT_VARIANT=12, VT_ARRAY=0x2000, VT_BYREF=0x4000)
pywintypes = SimpleNamespace(com_error=LPModelError)
gencache = SimpleNamespace(EnsureDispatch=Dispatch)
