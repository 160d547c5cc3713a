import signal

import pytest
from desk import Desk

# Where whoever started us ignores it, the statuses of our children are lost.
signal.signal(signal.SIGCHLD, signal.SIG_DFL)


@pytest.fixture(scope="session", autouse=True)
def isolation(tmp_path_factory):
    """Each of these tests is skipped, with the desk's own sentence, where a desk cannot be isolated."""
    probe = Desk(tmp_path_factory.mktemp("probe"))
    tried = probe.run()
    probe.end()
    if "Username:" not in tried.stdout:
        (pytest.skip if "namespaces" in tried.stderr else pytest.fail)(tried.stderr.strip().splitlines()[-1])


@pytest.fixture
def desk(tmp_path):
    one = Desk(tmp_path / "desk")
    yield one
    one.end()
