import subprocess
import tempfile

import pytest

from desk import Desk, desk  # noqa: F401


@pytest.fixture(scope="session", autouse=True)
def isolation():
    """Each of these tests is skipped, with the desk's own sentence, where a desk cannot be isolated."""
    with tempfile.TemporaryDirectory() as state:
        probe = Desk(state)
        tried = probe.run()
        if "Username:" not in tried.stdout:
            if "namespaces" in tried.stderr:
                pytest.skip(tried.stderr.strip().splitlines()[-1])
            pytest.fail(tried.stderr)
        probe.wait_until_down()
