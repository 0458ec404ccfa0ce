"""Measures the works that bench/table names and prints the table."""
import contextlib
import dataclasses
import json
import os
import pathlib
import re
import select
import signal
import statistics
import subprocess
import sys
import tempfile
import time

from works import Works

ROOT = pathlib.Path(__file__).resolve().parent.parent
TURNS = 5


@dataclasses.dataclass
class Row:
    work: str
    ours: str
    peer: str = ""
    ratio: str = ""
    limit: str = ""
    met: bool | None = None

    def text(self):
        met = "" if self.met is None else "yes" if self.met else "NO"
        return "| " + " | ".join([self.work, self.ours, self.peer, self.ratio, self.limit, met]) + " |"


def in_turn(*measures, turns=TURNS):
    """Each measure's values, taken in turn so that a slow moment hits all."""
    values = [[] for _ in measures]
    for _ in range(turns):
        for measure, taken in zip(measures, values):
            taken.append(measure())
    return values


def spread(values, unit, digits=0, factor=1):
    """The median with the smallest and the largest value."""
    low, middle, high = (f"{factor * value:,.{digits}f}" for value in (min(values), median(values), max(values)))
    return f"{middle} {unit} ({low}–{high})"


median = statistics.median


def seconds_of(*command, **options):
    started = time.monotonic()
    subprocess.run(command, check=True, stdout=options.pop("stdout", subprocess.DEVNULL), **options)
    return time.monotonic() - started


def seconds_to_first_byte(command, environment):
    """From the start to the first byte on standard output."""
    read, write = os.pipe()
    started = time.monotonic()
    child = os.posix_spawn(command[0], command, environment, file_actions=[(os.POSIX_SPAWN_DUP2, write, 1)])
    os.close(write)
    assert select.select([read], [], [], 60)[0] and os.read(read, 1), f"{command[0]} prints nothing"
    taken = time.monotonic() - started
    while os.read(read, 1 << 16):
        pass
    os.close(read)
    os.waitpid(child, 0)
    return taken


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


class Bench:
    def __init__(self, build, folder):
        self.build = build
        self.folder = folder
        self.works = Works(build / "Brasquelin", folder)
        # A window finds its display in it.
        self.environment = self.works.environment(DISPLAY=os.environ["DISPLAY"])

    def milliseconds(self, *arguments):
        """What a measurement of the windows prints: the longest of each name."""
        run = subprocess.run([self.build / "bench/wx/brasquelin_wx_bench", *arguments], env=self.environment,
                             check=True, capture_output=True, text=True, timeout=60)
        taken = {}
        for value, name in re.findall(r"^ *([\d.]+) ms  (.*)$", run.stdout, re.M):
            taken[name] = max(float(value), taken.get(name, 0))
        return taken

    def replay(self):
        lines, few = 100_000, 1_000
        arguments = self.works.replay(lines)
        rows = self.folder / "rows.txt"
        rows.write_text("".join("\t".join(f"value {i} of {n}" for i in range(5)) + "\n" for n in range(few)))
        first = self.folder / "row.txt"
        first.write_text(rows.read_text().split("\n")[0] + "\n")

        def parallel(file):
            return seconds_of("parallel", "--dry-run", "--colsep", "\t",
                              'pack --from "{1}" --to "{2}" {3} {4} {5}', "::::", file, env=self.environment,
                              stderr=subprocess.DEVNULL)

        ours, start, peer = in_turn(lambda: self.works.run(arguments, lines)[0], lambda: parallel(first),
                                    lambda: parallel(rows))
        taken = median(ours)
        peer_taken = median(start) + (median(peer) - median(start)) * (lines - 1) / (few - 1)
        title = "list of 100,000 lines with five presets, up to the batch file"
        yield Row(title, spread(ours, "s", 3), f"GNU parallel --dry-run: {peer_taken:,.0f} s (from {few:,} rows)",
                  f"{peer_taken / taken:,.0f} times as fast", "800 times", peer_taken / taken >= 800)
        yield Row("— lines a second", f"{lines / taken:,.0f}", "", "", "300,000", lines / taken >= 300_000)

    def loops(self):
        turns = 1_000_000
        arguments = self.works.loops(100, 100, 100)
        program = """BEGIN {
            for (i = 1; i <= 100; i++) for (j = 1; j <= 100; j++) for (k = 1; k <= 100; k++)
                printf "pack --from \\"in-%s-%s-%s\\" --to \\"out-%s-%s-%s\\" \\r\\n", i, j, k, i, j, k
        }"""

        def peer():
            with open(self.folder / "peer.txt", "w") as out:
                return seconds_of("mawk", program, stdout=out)

        ours, peers = in_turn(lambda: self.works.run(arguments, turns)[0], peer)
        assert (self.folder / "peer.txt").read_bytes() == self.works.batch.read_bytes(), "the peer wrote other lines"
        taken, peer_taken = median(ours), median(peers)
        yield Row("three nested loops, 1,000,000 jobs, up to the batch file", spread(ours, "s", 3),
                  "mawk: " + spread(peers, "s", 3), f"{peer_taken / taken:.2f} times as fast", "1 time",
                  peer_taken >= taken)
        yield Row("— jobs a second", f"{turns / taken:,.0f}", "", "", "1,500,000", turns / taken >= 1_500_000)

    def expansion(self):
        out = subprocess.run([self.build / "bench/brasquelin_bench", "--benchmark_format=json",
                              f"--benchmark_repetitions={TURNS}", "--benchmark_enable_random_interleaving=true",
                              "--benchmark_min_time=0.1"], check=True, capture_output=True, text=True).stdout
        taken = {}
        for run in json.loads(out)["benchmarks"]:
            if run["run_type"] == "iteration":
                name, *sizes = run["run_name"].split("/")
                taken.setdefault((name, *map(int, sizes)), []).append(run["cpu_time"])
        peer = taken.pop(("peerSearchesForEveryName",))
        for (_, declared, length), values in sorted(taken.items(), key=lambda each: (each[0][2], each[0][1])):
            row = Row(f"expansion of a line with 5 references, {declared} declared, 20 global"
                      + (f", {length:,} times as long" if length > 1 else ""), spread(values, "ns"))
            if (declared, length) == (10, 1):
                row.peer = "each name searched for in turn: " + spread(peer, "ns")
                row.ratio = f"{median(peer) / median(values):.1f} times as fast"
                row.limit, row.met = "300 ns", median(values) < 300
            yield row

        def uneven(title, limit, **sizes):
            """The most against the least time for the same text."""
            each = [median(taken["expandOneLine", declared, length]) / length
                    for declared in sizes["declared"] for length in sizes["lengths"]]
            ratio = max(each) / min(each)
            return Row("— " + title, "", "", f"{ratio:.2f}", f"at most {limit}", ratio <= limit)

        yield uneven("5, 50 and 250 declared, most against least", 1.5, declared=(5, 50, 250), lengths=(1,))
        yield uneven("10 to 1,000 times as long, time for the same text, most against least", 1.2, declared=(10,),
                     lengths=(10, 100, 1000))

    def counts(self):
        script = ROOT / "scripts/instruction-counts"
        out = subprocess.run([script, "--print", self.build / "Brasquelin"], check=True, capture_output=True,
                             text=True).stdout
        for work, count in (line.split() for line in out.splitlines()):
            row = Row(f"instructions a line: {work}", f"{int(count):,}")
            if work == "replay":
                row.limit, row.met = "25,000", int(count) <= 25_000
            yield row

    def proportional(self, what, measure, turns=3):
        """Rows of the bytes of memory at several sizes, `measure(jobs)` giving them with the batch's."""
        per_job = {}
        for jobs in (10_000, 100_000, 1_000_000):
            memory, batch = median([measure(jobs) for _ in range(turns)])
            per_job[jobs] = memory / jobs
            yield Row(f"{what}, {jobs:,} jobs", f"{memory / 1e6:,.1f} MB", f"batch file: {batch / 1e6:,.1f} MB",
                      f"{memory / batch:.2f}", "at most 2", memory <= 2 * batch)
        uneven = max(per_job.values()) / min(per_job.values())
        yield Row("— memory a job, most against least", "", "", f"{uneven:.2f}", "at most 1.2", uneven <= 1.2)

    def peaks(self, what, arguments):
        """Of unattended runs, `arguments(jobs)` being what starts them."""
        def peak(jobs):
            turns = 11 if jobs <= 100_000 else 3  # the same run takes 0.1 MB more or less
            return median([self.works.run(arguments(jobs), jobs)[1] for _ in range(turns)])

        base = peak(1)
        yield from self.proportional(f"memory of {what} above a run of one job",
                                     lambda jobs: (peak(jobs) - base, self.works.batch.stat().st_size), turns=1)

    def memory(self):
        def loops(jobs):
            return self.works.loops(*((100, 100, jobs // 10_000) if jobs > 1 else (1, 1, 1)))

        yield from self.peaks("loops", loops)
        yield from self.peaks("a replayed list", self.works.replay)

    @contextlib.contextmanager
    def run_window(self, batch):
        """The batch file's jobs run in a run window; gives its process once they are done, and the seconds."""
        started = time.monotonic()
        runner = subprocess.Popen([self.works.program, "--run", batch], env=self.environment,
                                  stdout=subprocess.DEVNULL)
        window = None
        while not window:
            time.sleep(0.02)
            # Not by its parent, which may have ended.
            found = subprocess.run(["pgrep", "-f", f"^{self.folder}/.* --run-window"], capture_output=True, text=True)
            window = int(found.stdout.split()[0]) if found.stdout else None
        try:
            assert runner.wait() == 0, "a job failed"
            yield window, time.monotonic() - started
        finally:
            os.kill(window, signal.SIGKILL)
            while pathlib.Path(f"/proc/{window}").exists():
                time.sleep(0.02)
            for log in self.folder.glob("*.joblog"):  # or the next run would ask whether to go on
                log.unlink()

    def window_peak(self, batch):
        with self.run_window(batch) as (window, _):
            before = -1000.0
            while (busy := processor_seconds(window)) - before > 0.05:  # takes in what the runner has told
                before = busy
                time.sleep(1)
            status = pathlib.Path(f"/proc/{window}/status").read_text()
            peak, files = (int(re.search(name + r":\s*(\d+)", status)[1]) for name in ("VmHWM", "RssFile"))
            return (peak - files) * 1024  # libraries are not what the jobs take

    def window_memory(self):
        batch = self.folder / "jobs.bat"
        batch.write_text("sleep 0.05\n" * 20)
        base = min(self.window_peak(batch) for _ in range(3))  # the first one makes caches for the home directory

        def measure(jobs):
            with open(batch, "w") as file:
                for job in range(jobs):
                    file.write(f': pack --from "in-{job}-{job}" --to "out-{job}-{job}" --quality 80\n')
            return self.window_peak(batch) - base, batch.stat().st_size

        yield from self.proportional("peak of the run window above that of 20 jobs", measure)

    def start_up(self):
        def start(title, program):
            return int(subprocess.run([self.build / "bench/wx/brasquelin_until_drawn", title, program],
                                      env=self.environment, check=True, capture_output=True, text=True).stdout) / 1000

        def ours():
            return start("Brasquelin", self.works.program)

        def peer():
            return start("Empty", self.build / "bench/wx/brasquelin_empty_window")

        ours(), peer()  # from the disk
        taken, peers = in_turn(ours, peer, turns=21)
        ratio = median(taken) / median(peers)
        yield Row("start-up until the main window is drawn", spread(taken, "ms"),
                  "empty window of the toolkit: " + spread(peers, "ms"), f"{ratio:.2f}", "at most 1.2", ratio <= 1.2)

    def first_line(self):
        (profile,) = self.works.loops(1, 1, 1)
        environment = self.works.environment()

        def until_line(*command):
            return lambda: 1000 * seconds_to_first_byte([str(part) for part in command], environment)

        ours, peers, least = in_turn(until_line(self.works.program, "--dry-run", profile),
                                     until_line(self.build / "bench/brasquelin_starts"),
                                     lambda: 1000 * seconds_of("/bin/true", env=environment), turns=21)
        later = median(ours) - median(peers)
        yield Row("first line of --dry-run", spread(ours, "ms", 1),
                  f"program that prints a line: {spread(peers, 'ms', 1)}; /bin/true: {median(least):.1f} ms",
                  f"{later:.1f} ms later", "10 ms", later <= 10)

    def editor(self):
        profile = self.works.long_profile(100_000)
        (runs,) = in_turn(lambda: self.milliseconds("editor", self.folder, profile))
        for name in runs[0]:
            taken = [run[name] for run in runs]
            yield Row(f"editor, 100,000 lines: {name}", spread(taken, "ms"), "", "", "200 ms", median(taken) < 200)

    def list(self):
        shown, edited = in_turn(lambda: self.milliseconds("list", self.folder),
                                lambda: self.milliseconds("jobs", self.folder))
        taken = [run["until shown"] for run in shown]
        yield Row("job list, 100,000 lines: until shown", spread(taken, "ms"), "", "", "500 ms", median(taken) <= 500)
        slowest = max(edited[0], key=lambda name: median([run[name] for run in edited]))
        yield Row(f"job list, 100,000 lines: slowest command ({slowest})",
                  spread([run[slowest] for run in edited], "ms"))

    def run(self):
        batch = self.folder / "true.bat"
        batch.write_text("true\n" * 100_000)

        def shown():
            with self.run_window(batch) as (_, taken):
                return taken

        console, window, peer = in_turn(
            lambda: seconds_of(self.works.program, "--run", "--no-window", batch, env=self.environment,
                               stderr=subprocess.DEVNULL),
            shown,
            lambda: seconds_of(self.folder / "brasquelin-batch", batch, env=self.environment))
        for where, taken in (("on the console", console), ("in the run window", window)):
            yield Row(f"100,000 jobs `true` {where}", spread(taken, "s", 2), "plain runner: " + spread(peer, "s", 2),
                      f"{median(taken) / median(peer):.2f}")


WORKS = {"replay": Bench.replay, "loops": Bench.loops, "expansion": Bench.expansion, "counts": Bench.counts,
         "memory": Bench.memory, "window-memory": Bench.window_memory, "start-up": Bench.start_up,
         "first-line": Bench.first_line, "editor": Bench.editor, "list": Bench.list, "run": Bench.run}


def main():
    build, *names = sys.argv[1:]
    unknown = [name for name in names if name not in WORKS]
    if unknown:
        sys.exit(f"bench/table: no work '{unknown[0]}'; there are {' '.join(WORKS)}")
    print("| work | Brasquelin | peer | ratio | to reach | met |")
    print("|---|---|---|---|---|---|", flush=True)
    for name in names or WORKS:
        with tempfile.TemporaryDirectory() as folder:
            for row in WORKS[name](Bench(pathlib.Path(build), pathlib.Path(folder))):
                print(row.text(), flush=True)


main()
