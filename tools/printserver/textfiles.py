"""The text files that server and client exchange: UTF-16 little-endian with a byte-order mark, lines ended by CR LF."""

import codecs
import os

SEPARATOR = "\x01"
LINE_END = "\r\n"

_CHUNK_LINES = 4096


class FormatError(Exception):
    """A file does not keep to its format; the text says how."""


def write_lines(path, lines):
    """Writes the lines, each ended by CR LF, without holding more than a few thousand of them at a time.

    The file appears under its name only when it is complete, so that no client ever reads half a list.
    """
    _write_chunks(path, _chunks(lines))


def write_text(path, text):
    """Writes the text as it stands, with nothing added to its end; complete from the moment it appears."""
    _write_chunks(path, [text])


def read_text(path):
    """Returns the file's text without its byte-order mark. Raises FormatError for any other encoding."""
    with open(path, "rb") as file:
        content = file.read()
    if not content.startswith(codecs.BOM_UTF16_LE):
        raise FormatError("it does not begin with the byte-order mark FF FE")
    try:
        return content[2:].decode("utf-16-le")
    except UnicodeDecodeError as error:
        raise FormatError(f"it is not UTF-16 little-endian text ({error.reason} at byte {error.start + 2})") from error


def read_lines(path):
    """Yields the lines without their ends, reading as it goes; a last line without an end counts too."""
    with open(path, encoding="utf-16", newline=LINE_END) as file:
        for line in file:
            yield line.removesuffix(LINE_END)


def check_field(text, what):
    """Returns the text when it can stand in a line of fields; nothing is ever escaped in these files."""
    if any(character in text for character in (SEPARATOR, "\r", "\n")):
        raise FormatError(f"{what} cannot hold a line break or the separator character: {text!r}")
    return text


def _chunks(lines):
    pending = []
    for line in lines:
        pending.append(line)
        if len(pending) == _CHUNK_LINES:
            yield LINE_END.join(pending) + LINE_END
            pending.clear()
    if pending:
        yield LINE_END.join(pending) + LINE_END


def _write_chunks(path, chunks):
    unfinished = f"{path}.new"
    try:
        with open(unfinished, "wb") as file:
            file.write(codecs.BOM_UTF16_LE)
            for chunk in chunks:
                file.write(chunk.encode("utf-16-le"))
        os.replace(unfinished, path)
    except BaseException:
        if os.path.exists(unfinished):
            os.remove(unfinished)
        raise
