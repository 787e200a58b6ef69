"""Real models, solved by scipy's solver through the arguments that to_scipy gives, and by GLPK through a file."""

import re
import shutil
import subprocess

import pytest
import quarvel

optimize = pytest.importorskip("scipy.optimize")


def find(data, name):
    found = [path for path in sorted(data.rglob("*")) if path.name.split(".")[0].lower() == name]
    if not found:
        pytest.skip(f"there is no {name}")
    return found[0]


@pytest.mark.parametrize("name, optimum", [
    ("afiro", -464.75314286), ("blend", -30.812149846), ("sc50a", -64.575077059), ("e226", -18.751929066 )])
def test_linear_models_have_their_known_optimum(data, name, optimum):
    m = quarvel.read(find(data, name))
    s = m.to_scipy()
    for result in (optimize.linprog(**s.linprog), optimize.milp(**s.milp)):
        assert result.status == 0
        # e226 has a constant, which the known value leaves out.
        assert s.objective(result.fun) - m.c0 == pytest.approx(optimum, rel=1e-8)
        assert not m.violations(result.x, tolerance=1e-6)


@pytest.mark.parametrize("name, optimum", [("flugpl", 1201500)])
def test_integer_models_have_their_known_optimum(data, name, optimum):
    m = quarvel.read(find(data, name))
    result = optimize.milp(**m.to_scipy().milp)
    assert m.to_scipy().objective(result.fun) == pytest.approx(optimum)


def test_maximising_gives_the_objective_of_the_model():
    m = quarvel.from_arrays([[1, 1]], [3, 2], row_ub=4, ub=3, sense="max", c0=10)
    s = m.to_scipy()
    assert s.objective(optimize.milp(**s.milp).fun) == pytest.approx(21)
    assert s.objective(optimize.linprog(**s.linprog).fun) == pytest.approx(21)


def solve_with_glpsol(model, folder):
    """The optimum that GLPK finds for what the model writes."""
    file, solution = folder / "model.mps", folder / "solution.txt"
    assert model.write(file, layout="free").is_whole
    subprocess.run(["glpsol", "--freemps", str(file), "-w", str(solution)], check=True,
                   stdout=subprocess.DEVNULL, timeout=60)
    found = re.search(r"^s (?:bas|mip) .* (\S+)$", solution.read_text(), re.M)
    return float(found.group(1))


@pytest.mark.skipif(shutil.which("glpsol") is None, reason="there is no glpsol (glpk-utils)")
@pytest.mark.parametrize("name, optimum", [("afiro", -464.75314286), ("flugpl", 1201500)])
def test_a_written_file_has_its_optimum_in_another_solver(data, tmp_path, name, optimum):
    m = quarvel.read(find(data, name))
    assert solve_with_glpsol(m, tmp_path) == pytest.approx(optimum)
    column = m.column_names[0]
    with m.edit() as e:
        e.set_coefficient(0, column, 5000)
    result = optimize.milp(**m.to_scipy().milp)
    assert solve_with_glpsol(m, tmp_path) == pytest.approx(m.to_scipy().objective(result.fun))
