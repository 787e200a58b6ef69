"""Who answers a model: questions, progress, Stop, Ctrl-C, what a callable raises, and threads."""

import gc
import io
import os
import signal
import subprocess
import sys
import threading
import time
import weakref

import pytest

import quarvel
from component_models import ROOT, environment, small_model, write_long_model
from quarvel.component import CANCEL, NO, OK, YES, Box, Desktop, LPModelError, ScriptedDesktop

MISTAKES = ROOT / "examples" / "mistakes.mps"


def read(desktop, path):
    model = quarvel.LPModel(desktop)
    model.strMPSFile = path
    return model, model.StartFileReding()


@pytest.fixture(scope="module")
def long_file(tmp_path_factory):
    return write_long_model(tmp_path_factory.mktemp("long") / "long.mps", 200_000)


def test_a_box_is_data():
    desktop = ScriptedDesktop(boxes=iter(lambda: "yes", 0))
    _, result = read(desktop, MISTAKES)
    problems = [box for box in desktop.boxes if box.code]
    assert result == -1 and len(problems) > 5
    first = problems[0]
    assert (first.kind, first.style, first.buttons) == ("read-problem", 4, (YES, NO)), first
    assert first.line > 0 and first.asks


def test_no_at_a_problem_ends_the_read():
    desktop = ScriptedDesktop(boxes={"read-problem": NO})
    model, result = read(desktop, MISTAKES)
    assert (result, model.ReadMPSFileErr) == (0, 0)
    assert len([box for box in desktop.boxes if box.kind == "read-problem"]) == 1


@pytest.mark.parametrize("answer", ["maybe", 5, OK, CANCEL])
def test_an_answer_that_a_box_does_not_have_comes_out(answer):
    with pytest.raises(ValueError, match="no answer to .*: yes, no"):
        read(Desktop(MsgBox=lambda box: answer), MISTAKES)


def test_a_desktop_takes_callables_by_its_names_only():
    with pytest.raises(TypeError, match="a desktop has no Msgbox; it has MsgBox"):
        Desktop(Msgbox=print)
    with pytest.raises(TypeError, match="a desktop is a Desktop, not a int"):
        quarvel.LPModel(5)


def test_a_desktop_without_answers_closes_everything():
    model, result = read(Desktop(), MISTAKES)
    assert result == 0
    assert model.ReadMPSFile() == 1
    assert model.SaveAsMPSFile() == 0
    model.ViewEquations(False)


def test_a_desktop_may_be_a_class_of_its_own():
    class Chooser(Desktop):
        def OpenFile(self, dialog):
            assert not dialog.saving and dialog.filter.count("|") % 2
            return ROOT / "examples" / "diet.mps"

        def Choose(self, choice):
            assert choice.options and choice.selected == 0
            return len(choice.options) - 1

    model = quarvel.LPModel(Chooser())
    assert model.ReadMPSFile() == -1
    assert model.ModelName == "DIET"


def test_default_bounds_are_chosen():
    lower = []
    for number in (0, 1):
        model = quarvel.LPModel(ScriptedDesktop(files=[ROOT / "examples" / "transport.mps"], choices=[number],
                                                boxes={"offer-to-simplify": "no"}))
        assert model.ReadMPSFile() == -1
        lower.append(model.ColLowerBound(0))
    assert sorted(lower) == [-1e10, 0.0]


@pytest.mark.parametrize("number", [-1, 99])
def test_an_option_that_is_not_there_comes_out(number):
    desktop = ScriptedDesktop(files=[MISTAKES], choices=[number])
    with pytest.raises(ValueError, match="is none of"):
        quarvel.LPModel(desktop).ReadMPSFile()


def test_what_a_callable_raises_comes_out_and_nobody_is_asked_after_it():
    asked = []

    def answer(box):
        asked.append(box.kind)
        raise ZeroDivisionError("mine")

    model = quarvel.LPModel(Desktop(MsgBox=answer))
    model.strMPSFile = MISTAKES
    with pytest.raises(ZeroDivisionError, match="mine"):
        model.StartFileReding()
    assert asked == ["read-problem"]
    # The model goes on living.
    model.desktop = ScriptedDesktop()
    model.MakeNewModel()
    assert model.AddRow("A") == -1


def test_what_a_box_that_only_tells_raises_comes_out_of_the_edit():
    def answer(box):
        raise RuntimeError(box.text)

    model = small_model()
    model.desktop = Desktop(MsgBox=answer)
    with pytest.raises(RuntimeError, match="Invalid Row Type"):
        model.SetRowType(0, "X")
    assert model.RowType(0) == "N"


def test_a_missing_scripted_answer_comes_out():
    with pytest.raises(LookupError, match="no answer for read-problem"):
        read(ScriptedDesktop(boxes={}), MISTAKES)
    with pytest.raises(LookupError, match="no answer is left for: Identify"):
        quarvel.LPModel(ScriptedDesktop()).ReadMPSFile()


def test_a_callable_may_call_the_model_back():
    seen = []

    def answer(box: Box):
        seen.append((model.NumberOfRows, model.AddRow("LIM")))
        if len(seen) < 3:
            model.SetRowType(0, "X")  # another box, within this one

    model = small_model()
    model.desktop = Desktop(MsgBox=lambda box: answer(box) if box.text == "Invalid Row Type" else None)
    model.SetRowType(0, "X")
    assert seen == [(2, 0)] * 3


def test_an_error_that_a_callable_lets_through_comes_out_as_it_is():
    model = small_model()
    model.desktop = Desktop(MsgBox=lambda box: model.RowName(77))
    with pytest.raises(LPModelError) as caught:
        model.AddRow("")
    assert caught.value.number == -2147220972


def test_an_error_that_a_callable_catches_is_its_own():
    def answer(box):
        with pytest.raises(LPModelError):
            model.RowName(77)

    model = small_model()
    model.desktop = Desktop(MsgBox=answer)
    assert model.AddRow("") == 0


def test_progress_is_told(long_file):
    parts = []
    desktop = ScriptedDesktop(files=[long_file], choices=[None], boxes={"offer-to-simplify": "no"},
                              Progress=lambda caption, part: parts.append((caption, part)))
    model = quarvel.LPModel(desktop)
    assert model.ReadMPSFile() == -1
    assert model.NumberOfColumns == 200_000
    assert len(parts) > 1 and all(0 <= part <= 1 and caption for caption, part in parts)


def test_false_from_progress_is_stop(long_file):
    desktop = ScriptedDesktop(files=[long_file], choices=[None], boxes={}, Progress=lambda caption, part: False)
    model = quarvel.LPModel(desktop)
    assert model.ReadMPSFile() == 0
    assert model.ReadMPSFileErr == 0


def test_what_progress_raises_comes_out(long_file):
    def progress(caption, part):
        raise OSError("full")

    model = quarvel.LPModel(ScriptedDesktop(files=[long_file], choices=[None], boxes={}, Progress=progress))
    with pytest.raises(OSError, match="full"):
        model.ReadMPSFile()


@pytest.fixture
def heard_ctrl_c():
    """Ctrl-C as ever: what a shell runs in the background ignores it from the start."""
    before = signal.signal(signal.SIGINT, signal.default_int_handler)
    yield
    signal.signal(signal.SIGINT, before)


def test_ctrl_c_is_stop_and_then_keyboard_interrupt(long_file, heard_ctrl_c):
    def progress(caption, part):
        signal.raise_signal(signal.SIGINT)

    model = quarvel.LPModel(ScriptedDesktop(files=[long_file], choices=[None], boxes={}, Progress=progress))
    with pytest.raises(KeyboardInterrupt):
        model.ReadMPSFile()
    assert model.NumberOfColumns < 200_000
    model.MakeNewModel()
    assert model.AddRow("A") == -1


def test_ctrl_c_from_outside_ends_a_read(long_file):
    script = ("import quarvel, signal, sys\n"
              "signal.signal(signal.SIGINT, signal.default_int_handler)\n"
              "d = quarvel.ScriptedDesktop(files=[sys.argv[1]] * 99, choices=[None] * 99,\n"
              "    boxes={'offer-to-simplify': 'no'}, Progress=lambda c, p: print('go', flush=True))\n"
              "m = quarvel.LPModel(d)\n"
              "try:\n    while True: m.ReadMPSFile()\n"
              "except KeyboardInterrupt: print('stopped')\n")
    with subprocess.Popen([sys.executable, "-c", script, long_file], stdout=subprocess.PIPE, text=True,
                          env=environment()) as child:
        assert child.stdout.readline() == "go\n"
        child.send_signal(signal.SIGINT)
        out, _ = child.communicate(timeout=60)
    assert child.returncode == 0 and out.endswith("stopped\n"), out


def test_other_threads_run_while_a_file_is_read(long_file):
    model = quarvel.LPModel(ScriptedDesktop(boxes={"offer-to-simplify": "no"}))
    model.strMPSFile = long_file
    done = threading.Event()

    def work():
        model.StartFileReding()
        done.set()

    reader = threading.Thread(target=work)
    reader.start()
    turns = 0
    while not done.is_set():
        time.sleep(0.0005)
        turns += 1
    reader.join()
    assert model.NumberOfColumns == 200_000
    assert turns > 4, "the interpreter stood still during the read"


def test_two_threads_at_once_is_an_error_and_harms_nothing(long_file):
    model = quarvel.LPModel(ScriptedDesktop(boxes={"offer-to-simplify": "no"}))
    model.strMPSFile = long_file
    began, caught = threading.Event(), []

    def progress(caption, part):
        began.set()
        time.sleep(0.01)

    model.desktop = ScriptedDesktop(files=[long_file], choices=[None], boxes={"offer-to-simplify": "no"},
                                    Progress=progress)
    reader = threading.Thread(target=model.ReadMPSFile)
    reader.start()
    assert began.wait(30)
    for call in (lambda: model.NumberOfRows, lambda: model.AddRow("X"), lambda: model.SaveMPSFile("x"),
                 model.MakeNewModel):
        with pytest.raises(LPModelError) as error:
            call()
        caught.append(error.value.number)
    assert repr(model) == "<LPModel: The model is in use by another thread.>"
    reader.join()
    assert caught == [-2147417842] * 4
    assert (model.NumberOfColumns, model.NumberOfRows) == (200_000, 51)


def test_many_threads_at_one_model_leave_it_whole():
    model = small_model()
    model.desktop = Desktop()
    errors, added = [], []

    def work(number):
        for i in range(300):
            try:
                if model.AddRow(f"T{number}_{i}") == -1:
                    added.append(1)
                model.DeleteRow(0 if i % 7 == 0 else 10**6)
                model.RowGradient(0, [0.0] * 3)
            except LPModelError as error:
                errors.append(error.number)

    threads = [threading.Thread(target=work, args=(i,)) for i in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert set(errors) <= {-2147417842, 9}
    assert model.NumberOfRows == len({model.RowName(i) for i in range(model.NumberOfRows)})
    for j in range(model.NumberOfColumns):
        for k in range(model.ColNumberElements(j)):
            assert model.ElementValue(model.ColElementrow(j, k), j) == model.ColElementvalue(j, k)


def test_a_model_may_be_used_by_one_thread_after_another():
    model = small_model()
    names = []
    worker = threading.Thread(target=lambda: names.append(model.RowName(1)))
    worker.start()
    worker.join()
    assert names == ["LIM"]


def test_a_model_that_its_desktop_holds_is_collected():
    model = quarvel.LPModel(Desktop(MsgBox=lambda box: model.NumberOfRows))
    alive = weakref.ref(model)
    del model
    gc.collect()
    assert alive() is None


def test_a_window_is_a_call_and_is_closed_behind_it():
    seen = []

    def window(caption):
        seen.append((caption, model.ViewEquationsWindowIsShowing()))
        model.ViewRow(1, False)  # comes to the front, and no second window opens

    model = small_model()
    model.desktop = Desktop(Window=window)
    model.ViewEquations(False)
    assert seen == [("Model Viewer", True)]
    assert model.ViewEquationsWindowIsShowing() is False


def test_an_editing_window_asks_once_whether_to_save(tmp_path):
    for answer, files in (("no", []), ("cancel", []), ("yes", [tmp_path / "saved.mps"])):
        model = small_model(boxes={"offer-to-save": answer, "offer-to-simplify": "no"}, files=files)
        model.ViewEquations(True)
        assert [box.kind for box in model.desktop.boxes][:1] == ["offer-to-save"]
        assert [box.kind for box in model.desktop.boxes].count("offer-to-save") == 1
        assert model.ViewEquationsWindowIsShowing() is False
    assert (tmp_path / "saved.mps").exists()


def test_what_a_window_raises_comes_out():
    def window(caption):
        raise KeyError("window")

    model = small_model()
    model.desktop = Desktop(Window=window)
    with pytest.raises(KeyError, match="window"):
        model.ViewEquations(True)
    assert model.ViewEquationsWindowIsShowing() is False


def test_the_log_of_a_simplification_is_opened(tmp_path):
    model = small_model(boxes={"offer-log": "yes"}, files=[])
    model.SaveMPSFile(tmp_path / "m.mps")
    model.AddRow("CAP")
    model.SetRowType(2, "L")
    model.SetRowUpperBound(2, 6)
    model.AddElement(2, 0, 2)
    model.SimplifyMPSModel()
    assert len(model.desktop.opened) == 1
    assert os.path.dirname(model.desktop.opened[0]) == str(tmp_path)


def test_the_console_prints_boxes_and_answers_as_closed(monkeypatch, capsys):
    monkeypatch.setattr(sys, "stdin", io.StringIO("yes\n"))
    model = quarvel.LPModel()
    model.strMPSFile = MISTAKES
    assert model.StartFileReding() == 0
    model.MakeNewModel()
    model.AddRow("BAD\x1b[2J")
    model.SetRowName(0, "A B")
    errors = capsys.readouterr().err
    assert "Answer: no" in errors and "Spaces are not allowed in row names" in errors
    assert "\x1b" not in errors


def test_the_console_asks_a_user(monkeypatch, capsys):
    class Terminal(io.StringIO):
        def isatty(self):
            return True

    monkeypatch.setattr(sys, "stdin", Terminal(f"{ROOT / 'examples' / 'transport.mps'}\n1\nwhat\nn\n"))
    monkeypatch.setattr(sys, "stderr", Terminal())
    model = quarvel.LPModel()
    assert model.ReadMPSFile() == -1
    assert model.ColLowerBound(0) == -1e10
    assert sys.stderr.getvalue().count("(yes/no) ") == 2
