"""Finds and runs the program gazetteer."""

import os
import queue
import shlex
import shutil
import subprocess
import threading

from processing.core.ProcessingConfig import ProcessingConfig
from qgis.core import QgsProcessingException

PROGRAM_SETTING = "GAZETTEER_PROGRAM"
PROGRAM_VARIABLE = "GAZETTEER_PROGRAM"
PREFIX, WARNING = "gazetteer: ", "warning: "
SECONDS_BETWEEN_LOOKS, SECONDS_TO_END = 0.1, 5


def find_program():
    """Path of the program: by the setting, by the environment, or on the PATH."""
    named = ProcessingConfig.getSetting(PROGRAM_SETTING) or os.environ.get(PROGRAM_VARIABLE)
    found = shutil.which(named or "gazetteer")
    if found:
        return found
    if named:
        raise QgsProcessingException(f"There is no program {named}; the setting of the provider "
                                     f"Gazetteer or {PROGRAM_VARIABLE} names it.")
    raise QgsProcessingException(
        "The program gazetteer is not installed; its package is called gazetteer. If it is not on "
        f"the PATH, the setting of the provider Gazetteer or {PROGRAM_VARIABLE} names it.")


def run_program(arguments, feedback, in_plain_words=lambda text: text):
    """Runs the program and passes on what it tells. Returns False if the user cancels.

    `in_plain_words` replaces names of temporary files in what it tells."""
    command = [find_program(), *arguments]
    feedback.pushCommandInfo(shlex.join(command))
    try:
        process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.PIPE, encoding="utf-8", errors="replace")
    except OSError as error:
        raise QgsProcessingException(f"{command[0]} cannot be run: {error.strerror}.") from error
    told = []
    for message in _messages(process, feedback):
        _push(told, feedback)
        told.append(in_plain_words(message))
    if feedback.isCanceled():
        return False
    if process.returncode != 0:  # What it told last is why.
        raise QgsProcessingException("".join(told)
                                     or f"gazetteer ended with {process.returncode}.")
    _push(told, feedback)
    return True


def _push(told, feedback):
    while told:
        message = told.pop()
        if message.startswith(WARNING):
            feedback.pushWarning(message[len(WARNING):])
        else:
            feedback.pushInfo(message)


def _messages(process, feedback):
    """What the program tells, line by line, until it ends or the user cancels."""
    lines = queue.Queue()

    def read():
        for line in process.stderr:
            lines.put(line.rstrip("\n"))
        lines.put(None)

    reader = threading.Thread(target=read, daemon=True)
    reader.start()
    while not feedback.isCanceled():
        try:
            line = lines.get(timeout=SECONDS_BETWEEN_LOOKS)
        except queue.Empty:
            continue
        if line is None:
            break
        yield line[len(PREFIX):] if line.startswith(PREFIX) else line
    if feedback.isCanceled():
        _end(process)
    process.wait()
    reader.join()
    process.stderr.close()


def _end(process):
    # It removes what it has begun to write when it is asked to end.
    process.terminate()
    try:
        process.wait(SECONDS_TO_END)
    except subprocess.TimeoutExpired:
        process.kill()
