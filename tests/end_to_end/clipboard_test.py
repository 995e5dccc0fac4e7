"""The clipboard, shared with xclip and with programs that break the rules of X."""

import subprocess
import sys
import tempfile
import time
from pathlib import Path

from session import PATIENCE, Session
from x_peer import ATOM, DELETED, NEW_VALUE, STRING, Peer

SHORT = "Grüße, Łódź: 5 € \U0001f600\n"
LONG = "".join(f"{k} ä€\n" for k in range(90000))  # more than a megabyte
assert len(LONG.encode()) > 1 << 20


class Program(Session):
    def begin(self, *words):
        print(*words, self.file, file=self.program.stdin, flush=True)

    def end(self):
        self.expect("done")
        return self.file.read_bytes().decode()

    def offer(self, board, text):
        self.file.write_bytes(text.encode())
        self.begin("offer", board)
        self.end()

    def paste(self, board):
        self.begin("paste", board)
        return self.end()


def xclip(display, board, *options, **how):
    command = ["xclip", "-selection", board, *options]
    return subprocess.run(command, env=display.environment, timeout=PATIENCE, check=True, **how)


def copied(display, board, target="UTF8_STRING"):
    return xclip(display, board, "-o", "-t", target, stdout=subprocess.PIPE).stdout


def equal(what, found, wanted):
    assert found == wanted, f"{what}: {found!r:.80}, not {wanted!r:.80}"


def share_with_xclip(display, program):
    for board in "clipboard", "primary":
        for text in SHORT, LONG, "a":
            program.offer(board, text)
            equal("to xclip", copied(display, board).decode(), text)
            equal("STRING", copied(display, board, "STRING"), text.encode("latin-1", "ignore"))
            assert int(copied(display, board, "TIMESTAMP")) > 0, "it has no time"
            xclip(display, board, input=(text + "!").encode())
            end = time.monotonic() + PATIENCE  # xclip may end before the part that it leaves begins
            while (pasted := program.paste(board)) == text and time.monotonic() < end:
                pass
            equal("from xclip", pasted, text + "!")
    program.offer("clipboard", "mine")
    equal("own text", program.paste("clipboard"), "mine")
    equal("the other board", program.paste("primary"), "a!")


def give(kind, unit, data):
    def answer(peer, requestor, *request):
        peer.change(requestor, request[2], kind, unit, data)
        peer.answer((requestor, *request), request[2])

    return answer


def paste_from_odd_owners(display, program):
    peer = Peer(display)
    board, utf8, announced = peer.atoms("CLIPBOARD", "UTF8_STRING", "INCR")
    def in_pieces(*pieces):
        def answer(peer, requestor, *request):
            peer.watch(requestor)
            give(announced, 32, bytes(8))(peer, requestor, *request)
            for piece in pieces:
                peer.wait_for_change(requestor, request[2], state=DELETED)
                peer.change(requestor, request[2], *piece)

        return answer

    piece = (utf8, 8, b"x" * 99)

    def refuse(peer, *request):
        peer.answer(request, 0)

    def vanish(peer, *request):
        in_pieces(piece)(peer, *request)
        peer.call("XCloseDisplay")

    for what, text, *answers in [
        ("only STRING", "Grüße", refuse, give(STRING, 8, b"Gr\xfc\xdfe")),
        ("STRING as UTF8_STRING", "ä", give(STRING, 8, b"\xe4")),
        ("nothing at all", "", refuse, refuse),
        ("another type", "", give(ATOM, 8, b"x")),
        ("numbers as text", "", give(utf8, 32, bytes(8))),
        ("no property", "", lambda peer, *request: peer.answer(request, request[3])),
        ("no answer", "", lambda peer, *request: None),
        ("pieces", "x" * 198, in_pieces(piece, piece, (utf8, 8, b""))),
        ("a piece of another type", "", in_pieces(piece, (ATOM, 8, b"x"))),
        ("an owner that vanishes", "", vanish),
    ]:
        peer.done("XSetSelectionOwner", board, peer.window, 0)
        program.begin("paste", "clipboard")
        for answer in answers:
            answer(peer, *peer.request())
        equal(what, program.end(), text)


def give_to_odd_receivers(display, program):
    program.offer("clipboard", LONG)
    peer = Peer(display)
    board, utf8, announced, name = peer.atoms("CLIPBOARD", "UTF8_STRING", "INCR", "NAME")
    receivers = [peer.new_window() for _ in range(20)]
    # The last one asks again, before it has got anything.
    for window in *receivers, receivers[-1]:
        peer.ask(window, board, utf8, name)
        equal("answer", peer.answered(), [window, board, utf8, name])
        equal("long text", [peer.take(window, name)[0]], [announced])
    # There are too many: the first of them are given up, and the last gets everything.
    peer.take(receivers[0], name)
    text, kind, piece = b"", 0, b""
    while kind == 0 or piece:
        peer.wait_for_change(receivers[-1], name, state=NEW_VALUE)
        kind, piece = peer.take(receivers[-1], name)
        text += piece
    equal("text for the last of many", text.decode(), LONG)
    equal("text that was given up", peer.take(receivers[0], name), (0, b""))
    peer.done("XDestroyWindow", receivers[-2])
    # Programs once named no property.
    peer.ask(peer.window, board, utf8, 0)
    equal("answer", peer.answered(), [peer.window, board, utf8, utf8])
    for refused in peer.atoms("PIXMAP", "NAME"):
        peer.ask(peer.window, board, refused, name)
        equal("refusal", peer.answered(), [peer.window, board, refused, 0])
    peer.call("XCloseDisplay")
    equal("text for others", copied(display, "clipboard").decode(), LONG)


def lose_the_connection(display, program):
    program.offer("clipboard", "kept")
    peer = Peer(display)
    peer.done("XSetSelectionOwner", *peer.atoms("PRIMARY"), peer.window, 0)
    program.begin("paste", "primary")
    peer.done("XKillClient", peer.request()[0])
    equal("a connection that is lost", program.end(), "")
    equal("what was copied", program.paste("clipboard"), "kept")
    program.offer("clipboard", SHORT)
    equal("a new one", copied(display, "clipboard").decode(), SHORT)


def main():
    with tempfile.TemporaryDirectory() as folder, Program(sys.argv[1]) as program:
        program.file = Path(folder, "text")
        for test in (share_with_xclip, paste_from_odd_owners, give_to_odd_receivers,
                     lose_the_connection):  # fmt: skip
            test(program.display, program)
        program.program.stdin.close()
        program.expect_end()


main()
