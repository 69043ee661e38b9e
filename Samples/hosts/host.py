#!/usr/bin/env python3
"""A host in Python: host.py FOLDER JOB-TICKET [PAGE-TICKET ...]

Converts a job ticket and its pages' tickets. The folder, which must be there, gets the job header and the data lines
as they come out of the last conversion, job.pjl and job.data, and the tickets as conversions leave them,
001-ticket.xml and so on. DEVICESPECIFIC_LIBRARY names the library's file where the loader doesn't find it.
"""

import ctypes
import os
import sys
from ctypes import POINTER, byref, c_char, c_char_p, c_int32, c_int64, c_size_t, c_uint32, c_void_p

DSM_PIPELINE, DSM_DRIVER, DSM_QUEUE = 0, 1, 2
DSM_ABSENT, DSM_NULL, DSM_TEXT, DSM_INTEGER, DSM_USER = 0, 1, 2, 3, 4
DSM_PAGE_LEVEL, DSM_DOCUMENT_LEVEL, DSM_JOB_LEVEL = 0, 1, 2


class Error(ctypes.Structure):
    _fields_ = [("Status", c_int32), ("Code", c_uint32), ("Line", c_int32), ("Column", c_int32), ("Text", c_char * 240)]


class Value(ctypes.Structure):
    _fields_ = [("Type", c_int32), ("Number", c_int64), ("Text", c_void_p), ("Length", c_size_t)]

    def text(self):
        return ctypes.string_at(self.Text, self.Length) if self.Type == DSM_TEXT else None


class Refused(Exception):
    """What a function of the library said."""


library = ctypes.CDLL(os.environ.get("DEVICESPECIFIC_LIBRARY", "libdevicespecificc.so.0"))
SIGNATURES = {
    "DsmNewJob": [POINTER(c_void_p)],
    "DsmSetProperty": [c_void_p, c_int32, c_char_p, POINTER(Value)],
    "DsmLoadTicket": [c_char_p, c_size_t, POINTER(c_void_p)],
    "DsmGetTicketXml": [c_void_p, POINTER(Value)],
    "DsmConvert": [c_void_p, c_int32, c_void_p, POINTER(c_void_p)],
    "DsmGetProperty": [c_void_p, c_char_p, POINTER(Value)],
}
for name, arguments in SIGNATURES.items():
    getattr(library, name).argtypes = arguments + [POINTER(Error)]
for name in ("DsmFreeJob", "DsmFreeTicket", "DsmFreeResult"):
    getattr(library, name).argtypes, getattr(library, name).restype = [c_void_p], None


def call(name, *arguments):
    error = Error()
    if getattr(library, name)(*arguments, byref(error)) != 0:
        place = f":{error.Line}:{error.Column}" if error.Line else ""
        raise Refused(f"{place}: {error.Text.decode()}")


class Handle:
    """A pointer to an object of the library, which is freed at the end of a with statement."""

    def __init__(self, free):
        self.pointer, self.free = c_void_p(), free

    def __enter__(self):
        return self.pointer

    def __exit__(self, *error):
        self.free(self.pointer)


def set_text(job, bag, name, text):
    call("DsmSetProperty", job, bag, name, byref(Value(DSM_TEXT, 0, ctypes.cast(c_char_p(text), c_void_p), len(text))))


def write(folder, name, text):
    """A property that isn't there makes no file."""
    if text is not None:
        with open(os.path.join(folder, name), "wb") as stream:
            stream.write(text)


def convert_ticket(job, folder, number, file):
    """Gives "PJL" and "DATA" as they are now."""
    value = Value()
    with Handle(library.DsmFreeTicket) as ticket, Handle(library.DsmFreeResult) as result:
        with open(file, "rb") as stream:
            content = stream.read()
        call("DsmLoadTicket", content, len(content), byref(ticket))
        call("DsmConvert", job, DSM_JOB_LEVEL if number == 1 else DSM_PAGE_LEVEL, ticket, byref(result))
        call("DsmGetTicketXml", ticket, byref(value))
        write(folder, f"{number:03}-ticket.xml", value.text())
        texts = []
        for name in (b"PJL", b"DATA"):
            call("DsmGetProperty", result, name, byref(value))
            texts.append(value.text())
        return texts


def convert_job(folder, files):
    with Handle(library.DsmFreeJob) as job:
        call("DsmNewJob", byref(job))
        set_text(job, DSM_PIPELINE, b"Series", b"Sample")  # what the host knows of its printer
        set_text(job, DSM_DRIVER, b"CommandMap_Sample", b"{}")
        for number, file in enumerate(files, 1):
            try:
                pjl, data = convert_ticket(job, folder, number, file)
            except Refused as error:
                sys.exit(f"host: {file}{error}")
        write(folder, "job.pjl", pjl)
        write(folder, "job.data", data)


if len(sys.argv) < 3:
    print("usage: host.py FOLDER JOB-TICKET [PAGE-TICKET ...]", file=sys.stderr)
    sys.exit(2)
convert_job(sys.argv[1], sys.argv[2:])
