"""Who answers what a model asks: desktops for quarvel.LPModel."""

from __future__ import annotations

import sys
from collections.abc import Callable, Iterable, Iterator, Mapping
from dataclasses import dataclass
from os import PathLike
from typing import Any, Union

OK, CANCEL, YES, NO = 1, 2, 6, 7
_WORDS = {"ok": OK, "cancel": CANCEL, "yes": YES, "no": NO}
_BUTTON_WORDS = {number: word for word, number in _WORDS.items()}

Path = Union[str, "PathLike[str]"]
Button = Union[int, str, None]


@dataclass(frozen=True)
class Box:
    """A message box.

    Its words are for who reads them; who answers it without a user goes by `kind`, and for a problem of
    a file by `code`, which stay when words change.
    """

    text: str  # lines are separated by CR LF
    style: int  # the buttons and the icon as MsgBox has them: 0, 4, 51, 52
    title: str
    kind: str  # "refusal", "failure", "note", "about", "read-problem", "empty-item", "conflict" ...
    code: str  # "no-such-row"; empty when it is no problem of a file
    line: int  # of that file; 0 for none
    item: str  # the name of the row or column that it is about
    buttons: tuple[int, ...]  # OK, CANCEL, YES, NO, in the order they stand
    when_closed: int  # what closing it by other means answers

    @property
    def asks(self) -> bool:
        """Whether there is more than one answer."""
        return len(self.buttons) > 1


@dataclass(frozen=True)
class FileDialog:
    """A dialog that asks for a file: to open, or to save."""

    saving: bool
    title: str
    filter: str  # pairs of words and patterns, all separated by "|"
    default_extension: str  # with its point
    file_name: str  # offered at first
    folder: str  # where the user begins to look; empty leaves it open


@dataclass(frozen=True)
class Choice:
    """One of several options, with an OK button: the default bounds of a read."""

    title: str
    text: str
    options: tuple[str, ...]
    selected: int


class Desktop:
    """What a model tells its user and asks of him; here nobody is there.

    Derive from it and override what you answer, or give it callables by the same names:
    `Desktop(MsgBox=lambda box: "no")`. None as an answer is a box that was closed, a dialog that was
    cancelled, the option that is selected. What one of them raises comes out of the call that asked, once
    its work has been stopped. They may call the model.
    """

    def __init__(self, **callables: Callable[..., Any]) -> None:
        for name, function in callables.items():
            if name not in _ANSWERS:
                raise TypeError(f"a desktop has no {name}; it has " + ", ".join(_ANSWERS))
            if not callable(function):
                raise TypeError(f"{name} of a desktop is a function, not a {type(function).__name__}")
            setattr(self, name, function)

    def MsgBox(self, box: Box) -> Button:
        """Shows a box; one of its buttons, as a number or as a word: "ok", "cancel", "yes", "no"."""
        return None

    def InputBox(self, prompt: str, title: str, default: str) -> str | None:
        """Asks for one line of text."""
        return None

    def OpenFile(self, dialog: FileDialog) -> Path | None:
        """Asks for a file to read."""
        return None

    def SaveFile(self, dialog: FileDialog) -> Path | None:
        """Asks for a file to write."""
        return None

    def Choose(self, choice: Choice) -> int | None:
        """Asks for one of several options, by its number from 0."""
        return None

    def Progress(self, caption: str, part: float) -> bool | None:
        """Hears, at most some 60 times a second, how much of the work is done, 0 to 1. False is Stop."""
        return None

    def Window(self, caption: str) -> None:
        """Stands for the user at a window that cannot be shown here; it closes when this returns."""

    def OpenInEditor(self, path: str) -> bool | None:
        """Opens a text file for reading. False when that cannot be done."""
        return False

    def CopyToClipboard(self, text: str) -> None:
        """Puts text on the clipboard."""

    def Beep(self) -> None:
        """Makes a sound."""

    # What the component calls.

    def _ask_box(self, *fields: Any) -> int:
        box = Box(*fields)
        answer = self.MsgBox(box)
        if not box.asks:
            return OK
        if answer is None:
            return box.when_closed
        number = _WORDS.get(answer.lower(), 0) if isinstance(answer, str) else int(answer)
        if number not in box.buttons:
            words = ", ".join(_BUTTON_WORDS[button] for button in box.buttons)
            raise ValueError(f"{answer!r} is no answer to {box.text!r}: {words}")
        return number

    def _ask_text(self, prompt: str, title: str, default: str) -> str:
        return self.InputBox(prompt, title, default) or ""

    def _ask_file(self, *fields: Any) -> Path:
        dialog = FileDialog(*fields)
        return (self.SaveFile(dialog) if dialog.saving else self.OpenFile(dialog)) or ""

    def _choose(self, *fields: Any) -> int:
        choice = Choice(*fields)
        number = self.Choose(choice)
        if number is None:
            return choice.selected
        if number not in range(len(choice.options)):
            raise ValueError(f"{number!r} is none of {len(choice.options)} options")
        return number

    def _show_progress(self, caption: str, part: float) -> bool:
        return self.Progress(caption, part) is not False

    def _show_window(self, caption: str) -> None:
        self.Window(caption)

    def _open_in_editor(self, path: str) -> bool:
        return bool(self.OpenInEditor(path))

    def _copy(self, text: str) -> None:
        self.CopyToClipboard(text)

    def _beep(self) -> None:
        self.Beep()


_ANSWERS = tuple(name for name in vars(Desktop) if name[0].isupper())


def _visible(text: str) -> str:
    """The text for a terminal, which names in it must not steer."""
    lines = text.replace("\r\n", "\n")
    return "".join(c if c.isprintable() or c == "\n" else ascii(c)[1:-1] for c in lines)


class ConsoleDesktop(Desktop):
    """Boxes are lines on standard error. Questions are asked where a user is at a terminal, and else get
    the cautious answer: as if they had been closed."""

    def MsgBox(self, box: Box) -> Button:
        self._say(box.text)
        if not box.asks:
            return OK
        words = [_BUTTON_WORDS[button] for button in box.buttons]
        while (line := self._line(f"({'/'.join(words)}) ")) is not None:
            found = [word for word in words if line and word.startswith(line.strip().lower())]
            if len(found) == 1:
                return found[0]
        self._say(f"Answer: {_BUTTON_WORDS[box.when_closed]}")
        return box.when_closed

    def InputBox(self, prompt: str, title: str, default: str) -> str | None:
        self._say(prompt)
        line = self._line(f"[{_visible(default)}] > ")
        return default if line == "" else line

    def OpenFile(self, dialog: FileDialog) -> str | None:
        self._say(dialog.title)
        return self._line("> ")

    SaveFile = OpenFile

    def Choose(self, choice: Choice) -> int | None:
        if not self._present():
            return None
        self._say("\n".join([choice.title, choice.text]))
        for number, option in enumerate(choice.options):
            self._say(f"{'*' if number == choice.selected else ' '} {number} {option}")
        line = self._line("> ") or ""
        return int(line) if line.isdecimal() and int(line) < len(choice.options) else None

    def OpenInEditor(self, path: str) -> bool:
        self._say(f"See {path}")
        return True

    def _say(self, text: str) -> None:
        print(_visible(text), file=sys.stderr)

    def _present(self) -> bool:
        return bool(sys.stdin and sys.stdin.isatty() and sys.stderr and sys.stderr.isatty())

    def _line(self, prompt: str) -> str | None:
        if not self._present():
            return None
        print(prompt, end="", file=sys.stderr, flush=True)
        return sys.stdin.readline().rstrip("\n") or None


Answers = Union[Iterable[Any], Mapping[str, Any]]


class ScriptedDesktop(Desktop):
    """Answers that are known before, and a record of all that was told and asked.

    `boxes` answers the boxes that ask, in their order or, as a mapping, by their kind; `files`, `texts`
    and `choices` answer the others in their order. An answer may be a callable, which is given what is
    asked. A question without an answer raises LookupError.
    """

    def __init__(self, *, boxes: Answers = (), files: Iterable[Any] = (), texts: Iterable[Any] = (),
                 choices: Iterable[Any] = (), **callables: Callable[..., Any]) -> None:
        super().__init__(**callables)
        self.boxes: list[Box] = []
        self.files: list[FileDialog] = []
        self.texts: list[tuple[str, str, str]] = []
        self.choices: list[Choice] = []
        self.windows: list[str] = []
        self.opened: list[str] = []
        self._by_kind = boxes if isinstance(boxes, Mapping) else None
        self._boxes = iter(()) if isinstance(boxes, Mapping) else iter(boxes)
        self._files, self._texts, self._choices = iter(files), iter(texts), iter(choices)

    def MsgBox(self, box: Box) -> Button:
        self.boxes.append(box)
        if not box.asks:
            return OK
        if self._by_kind is None:
            answer: Button = _next(self._boxes, box, box.text)
            return answer
        if box.kind not in self._by_kind:
            raise LookupError(f"no answer for {box.kind}: {box.text}")
        answer = _answer(self._by_kind[box.kind], box)
        return answer

    def InputBox(self, prompt: str, title: str, default: str) -> str | None:
        self.texts.append((prompt, title, default))
        text: str | None = _next(self._texts, self.texts[-1], prompt)
        return text

    def OpenFile(self, dialog: FileDialog) -> Path | None:
        self.files.append(dialog)
        path: Path | None = _next(self._files, dialog, dialog.title)
        return path

    SaveFile = OpenFile

    def Choose(self, choice: Choice) -> int | None:
        self.choices.append(choice)
        number: int | None = _next(self._choices, choice, choice.title)
        return number

    def Window(self, caption: str) -> None:
        self.windows.append(caption)

    def OpenInEditor(self, path: str) -> bool:
        self.opened.append(path)
        return True


def _answer(answer: Any, question: Any) -> Any:
    return answer(question) if callable(answer) else answer


def _next(answers: Iterator[Any], question: Any, words: str) -> Any:
    for answer in answers:
        return _answer(answer, question)
    raise LookupError(f"no answer is left for: {words}")
