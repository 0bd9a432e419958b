"""What a person at a shell gets who types a line and presses the Tab key."""

import os
import pathlib
import pty
import select
import signal
import sys
import time

DONE = "echo 'DO''NE'"  # written as it is typed, the word does not look as it is printed
MARK = b"DONE\r\n"


def read_until(terminal, mark, seconds=10):
    seen = b""
    end = time.monotonic() + seconds
    while mark not in seen:
        if not select.select([terminal], [], [], max(0, end - time.monotonic()))[0]:
            sys.exit(f"the shell did not come to {mark!r}: {seen!r}")
        seen += os.read(terminal, 65536)
    return seen


def completed(shell, set_up, folder, line):
    """The words of the line after the Tab key, as the shell hands them to a command."""
    words = pathlib.Path(folder).with_suffix(".words")
    words.unlink(missing_ok=True)
    child, terminal = pty.fork()
    if child == 0:
        os.chdir(folder)
        os.environ["TERM"] = "dumb"
        os.execvp(shell[0], shell)
    try:
        os.write(terminal, f"{set_up}; {DONE}\n".encode())
        read_until(terminal, MARK)
        os.write(terminal, line.encode() + b"\t")
        # The line becomes the arguments of printf: Control-E leads to its end, Control-A to its start.
        os.write(terminal, f"\x05 >{words}; {DONE}\x01printf '%s\\n' \n".encode())
        read_until(terminal, MARK)
        return words.read_text().splitlines()
    finally:
        os.kill(child, signal.SIGKILL)
        os.waitpid(child, 0)


def compare(found, wanted):
    if found != wanted.split("|"):
        sys.exit(f"{'|'.join(found)} in place of {wanted}")
