"""Shells that are asked what they would complete, as if Tab were pressed."""

import os
import pathlib
import pty
import re
import shlex
import subprocess
import tempfile

from places import PACKAGING, run

COMPLETION = PACKAGING / "completion"

ASK_BASH = """
source "$1"; shift
COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1))
"$(complete -p "$1" | sed 's/.*-F \\([^ ]*\\).*/\\1/')"
[ ${#COMPREPLY[@]} -eq 0 ] || printf '%s\\n' "${COMPREPLY[@]}"
"""

# Completes what stands on its first line, writes down what would have been added, and ends.
ZSH_THAT_COMPLETES = """
fpath=("$COMPLETIONS" $fpath)
autoload -Uz compinit && compinit -u -D
zstyle ':completion:*' completer _complete
typeset -a found
compadd() {
    # Asked with these it only tells or keeps something and adds nothing.
    if (( ! ${@[(I)-[OAD]]} )); then
        local -a fitting
        builtin compadd -O fitting "$@"
        found+=($fitting)
    fi
    builtin compadd "$@"
}
answer() {
    _main_complete
    print -rl -- $found > "$ANSWER"
    exit
}
zle -C answer complete-word answer
zle-line-init() {
    BUFFER=$LINE_SO_FAR
    CURSOR=$#BUFFER
    zle answer
}
zle -N zle-line-init
"""


def bash(*words, **surroundings):
    """What the last word, begun or empty, may become."""
    return set(run("bash", "--norc", "-c", ASK_BASH, "bash", COMPLETION / "bash" / words[0], *words,
                   **surroundings).split())


def fish(*words, **surroundings):
    script = (f"source {COMPLETION / 'fish' / words[0]}.fish; "
              f"complete -C {shlex.quote(' '.join(words))}")
    with tempfile.TemporaryDirectory() as home:
        answer = run("fish", "--no-config", "-c", script,
                     env={**os.environ, "HOME": home}, **surroundings)
    return {line.partition("\t")[0] for line in answer.splitlines()}


def zsh(*words, **surroundings):
    with tempfile.TemporaryDirectory() as folder:
        answer = pathlib.Path(folder, "answer")
        pathlib.Path(folder, ".zshrc").write_text(ZSH_THAT_COMPLETES, encoding="utf-8")
        said = talk_to_terminal(
            ["zsh", "--no-globalrcs", "-i"],
            env={**os.environ, "ZDOTDIR": folder, "HOME": folder, "TERM": "dumb",
                 "ANSWER": str(answer), "LINE_SO_FAR": " ".join(words),
                 "COMPLETIONS": str(COMPLETION / "zsh")}, **surroundings)
        if not answer.exists() or "_kelmar" in said:
            raise AssertionError("zsh complains: " + said)
        return set(answer.read_text(encoding="utf-8").split())


def talk_to_terminal(words, **surroundings):
    """What a program says that believes to have a terminal before it."""
    terminal, end = pty.openpty()
    try:
        process = subprocess.Popen(words, stdin=end, stdout=end, stderr=end,
                                   start_new_session=True, **surroundings)
        os.close(end)
        said = b"".join(iter(lambda: read_some(terminal), b""))
        process.wait(timeout=60)
        return re.sub(r"\x1b\[[0-9;?]*[a-zA-Z]", "", said.decode(errors="replace"))
    finally:
        os.close(terminal)


def read_some(terminal):
    try:
        return os.read(terminal, 4096)
    except OSError:  # Nobody has the other end any more.
        return b""
