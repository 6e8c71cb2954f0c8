"""One call costs one send and one receive on either side, and no other system call.

Both sides run under strace, once with few and once with many calls; what more calls add is what a call costs.
Arguments: the service, the calling program.
"""

import os
import subprocess
import sys
import tempfile
import unittest

FEW, MANY = 100, 1100
PATIENCE = 60
# So many system calls may be made more or less beside those of the calls.
FEW_OTHERS = 20


def counts(summary_file):
    """System calls by name, from the summary that strace -c writes."""
    result = {}
    with open(summary_file, encoding="utf-8") as summary:
        for line in summary:
            fields = line.split()
            if len(fields) >= 5 and fields[0].replace(".", "", 1).isdigit() and fields[-1] != "total":
                result[fields[-1]] = int(fields[3])
    return result


def traced(summary_file, *command):
    return ["strace", "--follow-forks", "--quiet=all", "--summary-only", f"--output={summary_file}", *command]


class SystemCalls(unittest.TestCase):
    service = ""
    caller = ""

    def run_both(self, calls):
        with tempfile.TemporaryDirectory(prefix="kelutv-") as folder:
            environment = dict(
                os.environ,
                KQDROID_RUNTIME_DIR=os.path.join(folder, "runtime"),
                KQDROID_SERVICE_WAIT_MS="10000",
                KQLOG_LEVEL="e",
                # The leak check of sanitized programs cannot run beside a tracer.
                ASAN_OPTIONS="detect_leaks=0",
            )
            service_summary = os.path.join(folder, "service")
            caller_summary = os.path.join(folder, "caller")
            with subprocess.Popen(traced(service_summary, self.service), env=environment) as service:
                try:
                    caller = traced(caller_summary, self.caller, str(calls), "end")
                    subprocess.run(caller, env=environment, timeout=PATIENCE, check=True, stderr=subprocess.DEVNULL)
                    service.wait(timeout=PATIENCE)
                finally:
                    service.kill()
            return counts(service_summary), counts(caller_summary)

    def expect_cost(self, few, many):
        added = {name: many.get(name, 0) - few.get(name, 0) for name in few.keys() | many.keys()}
        # Reading the environment of a process, how long it took to come up and the like differ by a few.
        of_a_call = {name: number / (MANY - FEW) for name, number in added.items() if abs(number) >= FEW_OTHERS}
        self.assertEqual(of_a_call.keys(), {"sendto", "recvfrom"})
        for number in of_a_call.values():
            self.assertAlmostEqual(number, 1, delta=FEW_OTHERS / (MANY - FEW))

    def test_one_send_and_one_receive_a_side(self):
        service_few, caller_few = self.run_both(FEW)
        service_many, caller_many = self.run_both(MANY)
        with self.subTest("service"):
            self.expect_cost(service_few, service_many)
        with self.subTest("caller"):
            self.expect_cost(caller_few, caller_many)


if __name__ == "__main__":
    SystemCalls.service, SystemCalls.caller = sys.argv[1:3]
    unittest.main(argv=sys.argv[:1])
