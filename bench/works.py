"""The works that are measured, each of any size, in a program directory of its own."""
import os
import pathlib
import shutil
import subprocess
import time

LIBRARY = """#Brasquelin Library  Pack
[var]
input
.Type=Text
.Info=none
output
.Type=Text
.Info=none
{more}[/var]
[command]
type=shell
command=pack --from "$input$" --to "$output$" {options}
[/command]
"""
REPLAYED = """#Brasquelin Profile Replayed
[library]
:Include $exepath$/pack.bqs
[/library]
[var]
{declarations}[/var]
[profile]
Pack
{parameters}[/profile]
"""
LOOPS = """#Brasquelin Profile Loops
[library]
:Include $exepath$/pack2.bqs
[/library]
[profile]
{open}Pack
.input=in-$i$-$j$-$k$
.output=out-$i$-$j$-$k$
Next
Next
Next
[/profile]
"""
CALLING = """#Brasquelin Profile Long
[library]
:Include $exepath$/{library}.bqs
[/library]
[var]
x
.Type=Text
.Info=none
[/var]
[profile]
{calls}
Unknown
[/profile]
"""
FUNCTION = """[var]
input
.Type=Text
.Info=none
level
.Type=List(fast||best)
.Info=none
.Default=1
[/var]
[command]
type=shell
command=tool{number} --$level$ "$input$"
[/command]
"""
FIVE = ["input", "output", "third", "fourth", "fifth"]


def write(path, text):
    path.write_text(text.replace("\n", "\r\n"), newline="")


class Works:
    """A copy of a program with libraries and profiles; nothing is written outside of `folder`."""

    def __init__(self, program_directory, folder):
        self.folder = pathlib.Path(folder)
        for file in pathlib.Path(program_directory).iterdir():
            if file.is_file() and file.name.startswith("brasquelin"):
                shutil.copy(file, self.folder)
        self.program = self.folder / "brasquelin"
        self.batch = self.folder / "brasquelin.bat"
        self.batch.unlink(missing_ok=True)
        self.configure()
        declared = "{}\n.Type=Text\n.Info=none\n"
        write(self.folder / "pack.bqs", LIBRARY.format(more="".join(declared.format(name) for name in FIVE[2:]),
                                                       options=" ".join(f"${name}$" for name in FIVE[2:])))
        write(self.folder / "pack2.bqs", LIBRARY.format(more="", options=""))
        write(self.folder / "replayed.bqp",
              REPLAYED.format(declarations="".join(declared.format(name) for name in FIVE),
                              parameters="".join(f".{name}=${name}$\n" for name in FIVE)))

    def configure(self, setting=""):
        write(self.folder / "Brasquelin.ini",
              f"[config]\nshellexec = grep -q .\n{setting}[/config]\n[var]\nOutDir=$exepath$/out\n[/var]\n")

    def replay(self, lines):
        """Arguments that replay a list of so many lines with five presets each: a job a line."""
        path = self.folder / f"list-{lines}.txt"
        with open(path, "w", newline="") as file:
            for number in range(lines):
                presets = " ".join(f"00{i + 1}=value {i} of {number}" for i in range(5))
                file.write(f"/opt/brasquelin {self.folder}/replayed.bqp {presets}\r\n")
        return ["-f", str(path)]

    def loops(self, *ends):
        """Arguments that run three nested loops up to these ends: a job for each turn of the innermost."""
        path = self.folder / f"loops-{'-'.join(map(str, ends))}.bqp"
        loop = "For\n.VarName={}\n.VarStart=1\n.VarEnd={}\n.VarStep=1\n"
        write(path, LOOPS.format(open="".join(loop.format(name, end) for name, end in zip("ijk", ends))))
        return [str(path)]

    def long_profile(self, lines):
        """The path of a profile with so many lines in its command section, and one finding."""
        path = self.folder / f"long-{lines}.bqp"
        call = "Pack\n.input=$x$ of {0}\n.output=$exepath$/out-{0}\n.third=3"
        calls = "\n".join(call.format(i) for i in range(lines // 4))
        write(path, CALLING.format(library="pack", calls=calls))
        return str(path)

    def statements(self, lines):
        """The path of a profile with so many statements, by turns one of ten functions and a library, and one finding."""
        self.configure("BasicFunctionPath = $exepath$/functions.ini\n")
        write(self.folder / "functions.ini", "".join(f"Tool{n}\n$exepath$/tool{n}.ini\n" for n in range(10)))
        for number in range(10):
            write(self.folder / f"tool{number}.ini", FUNCTION.format(number=number))
        path = self.folder / f"statements-{lines}.bqp"
        pair = "BasicFunction.Tool{0}=input=$x$ of {1}||level=best\nPack"
        calls = "\n".join(pair.format(n % 10, n) for n in range(lines // 2))
        write(path, CALLING.format(library="pack2", calls=calls))
        return str(path)

    def environment(self, **more):
        """Of a start without a display."""
        kept = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        return {**kept, "HOME": str(self.folder), "XDG_DATA_HOME": str(self.folder / "data"), **more}

    def run(self, arguments, jobs):
        """Runs up to the written batch file. Gives the seconds and the most memory in bytes."""
        self.batch.unlink(missing_ok=True)
        started = time.time()
        # By a small program: a child counts its parent's memory as its own, up to its exec.
        peak = self.folder / "peak.txt"
        subprocess.run(["/usr/bin/time", "-f", "%M", "-o", peak, self.program, *arguments], env=self.environment(),
                       check=True)
        with open(self.batch, "rb") as file:
            assert sum(1 for _ in file) == jobs, "a job is missing"
        return self.batch.stat().st_mtime - started, int(peak.read_text()) * 1024
