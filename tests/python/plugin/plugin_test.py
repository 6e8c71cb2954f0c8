"""The plugin of pytest, tested by pytest's own tester."""

from __future__ import annotations

import json
import sys
import tempfile
from pathlib import Path

import kelutv
import pytest

pytest_plugins = ["pytester"]


def run(tester: pytest.Pytester, *options: str) -> pytest.RunResult:
    """Runs the tests of a folder with the plugin."""
    folder = f"--basetemp={tester.path / 'temporary'}"
    return tester.runpytest_inprocess("-p", "no:cacheprovider", folder, *options)


def test_gives_each_test_a_television_of_its_own(pytester: pytest.Pytester) -> None:
    pytester.makepyfile("""
        def test_first(television, simulator):
            television.audio.set_volume(0, 35)
            assert simulator.get("audio.volume[speaker]") == [35]

        def test_second(television):
            assert television.audio.get_volume(0) == 20
    """)
    run(pytester).assert_outcomes(passed=2)


def test_lets_televisions_go_wrong(pytester: pytest.Pytester) -> None:
    pytester.makepyfile("""
        import kelutv, pytest

        @pytest.mark.fault("CMD_AUDIO_GETVOLUME error -5", "CMD_AUDIO_SETVOLUME error -6")
        def test_refused(television):
            with pytest.raises(kelutv.ServiceRefused, match="-5"):
                television.audio.get_volume(0)
            with pytest.raises(kelutv.ServiceRefused, match="-6"):
                television.audio.set_volume(0, 1)

        @pytest.mark.fault("CMD_AUDIO_GETVOLUME delay 60s")
        def test_given_up(television):
            with pytest.raises(kelutv.Timeout, match="within 1.5 s"):
                television.audio.get_volume(0)
    """)
    run(pytester, "--television-timeout", "1.5", "--strict-markers").assert_outcomes(passed=2)


def test_plays_scenarios(pytester: pytest.Pytester) -> None:
    (pytester.path / "louder.scenario").write_text("on CMD_AUDIO_GETVOLUME set audio.volume[speaker] = 77\n")
    pytester.makepyfile("""
        import pytest

        @pytest.mark.scenario("louder.scenario", speed=10)
        def test_louder(television):
            with television.events(timeout=20) as events:
                television.audio.get_volume(0)
                assert next(events).name == "volumeChanged"
            assert television.audio.get_volume(0) == 77

        @pytest.mark.scenario()
        def test_wrong(television):
            pass
    """)
    result = run(pytester)
    result.assert_outcomes(passed=1, errors=1)
    result.stdout.fnmatch_lines(["*the marker is scenario(name, speed=None)*"])


def test_tests_a_real_television(pytester: pytest.Pytester) -> None:
    pytester.makepyfile("""
        import pytest

        def test_television(television):
            television.audio.set_volume(0, 35)

        def test_simulator(television, simulator):
            pass

        @pytest.mark.fault("any error -5")
        def test_fault(television):
            pass
    """)
    with kelutv.Simulator() as real:
        run(pytester, f"--television={real.runtime_dir}").assert_outcomes(passed=1, skipped=2)
        assert real.get("audio.volume[speaker]") == [35]


def test_keeps_the_recording_of_a_test_that_fails(pytester: pytest.Pytester) -> None:
    pytester.makepyfile("""
        def test_good(television, recording):
            television.audio.set_volume(0, 35)

        def test_bad(recording, television):
            television.audio.set_volume(0, 36)
            assert television.audio.get_volume(0) == 37
    """)
    result = run(pytester, "--recordings", "kept")
    result.assert_outcomes(passed=1, failed=1)
    (kept,) = (pytester.path / "kept").iterdir()
    result.stdout.fnmatch_lines(["*recordings kept*", f"*{kept.name}"])
    assert "test_bad" in kept.name
    assert commands_of(kept) == ["CMD_AUDIO_SETVOLUME", "CMD_AUDIO_GETVOLUME"]


def commands_of(path: Path) -> list[str]:
    """The commands of a recording."""
    lines = [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()]
    assert lines[-1]["kind"] == "end"
    return [line["decoded"]["request"]["command"] for line in lines if line["kind"] == "transaction"]


def test_refuses_wrong_times(pytester: pytest.Pytester) -> None:
    result = run(pytester, "--television-timeout", "0")
    assert result.ret == pytest.ExitCode.USAGE_ERROR
    result.stderr.fnmatch_lines(["*--television-timeout must be above 0*"])


if __name__ == "__main__":
    with tempfile.TemporaryDirectory() as folder:
        sys.exit(pytest.main(["-q", "-p", "no:cacheprovider", "--basetemp", f"{folder}/tests", __file__]))
