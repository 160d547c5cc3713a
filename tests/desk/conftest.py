import pytest
from desk import Desk


@pytest.fixture(scope="session", autouse=True)
def isolation(tmp_path_factory):
    """Each of these tests is skipped, with the desk's own sentence, where a desk cannot be isolated."""
    with Desk(tmp_path_factory.mktemp("probe")) as probe:
        tried = probe.run()
    if "Username:" not in tried.stdout:
        (pytest.skip if "namespaces" in tried.stderr else pytest.fail)(tried.stderr.strip().splitlines()[-1])


@pytest.fixture
def desk(tmp_path):
    with Desk(tmp_path / "desk") as one:
        yield one
