"""lxml_loop.py TICKET DEVMODE_NAMESPACE: what a page call reads from a ticket and edits in it, by lxml.

Prints the CPU seconds of one turn, three times: of reading and editing a loaded ticket in one loop over the root's
children, as a script that cares for time does it, with the answers that the module's queries give; of the same by
those queries, compiled once; and of the loop with the parse ahead of it, the text of the edited ticket behind it and
the freeing.
"""

import sys
import time

from lxml import etree

TURNS = 300
FRAMEWORK = "http://schemas.microsoft.com/windows/2003/08/printing/printschemaframework"
KEYWORDS = "http://schemas.microsoft.com/windows/2003/08/printing/printschemakeywords"
FEATURE, OPTION, PARAMETER = ("{%s}%s" % (FRAMEWORK, name) for name in ("Feature", "Option", "ParameterInit"))

FEATURES = ["PageMediaSize", "PageMediaType", "PageInputBin", "PageOrientation"]
REMOVED_FEATURE = "psk:PageOutputQuality"
REMOVED_PARAMETER = "ns0000:PageDevmodeSnapshot"
QUERIES = ["/psf:PrintTicket/psf:Feature[substring-after(@name,':')='%s'][name(namespace::*[.='%s'])="
           "substring-before(@name,':')]/psf:Option/@name" % (feature, KEYWORDS) for feature in FEATURES]
REMOVAL_QUERIES = ["//psf:PrintTicket/psf:ParameterInit[@name='%s']" % REMOVED_PARAMETER,
                   "//psf:PrintTicket/psf:Feature[@name='%s']" % REMOVED_FEATURE]


def convert_by_loop(tree):
    root = tree.getroot()
    options = {}
    removed = {}
    for child in root:
        if child.tag == FEATURE:
            name = child.get("name", "")
            prefix, _, local = name.partition(":")
            if local in FEATURES and local not in options and child.nsmap.get(prefix) == KEYWORDS:
                option = child.find(OPTION)
                if option is not None:
                    options[local] = option.get("name")
            elif name == REMOVED_FEATURE:
                removed.setdefault(name, child)
        elif child.tag == PARAMETER and child.get("name") == REMOVED_PARAMETER:
            removed.setdefault(REMOVED_PARAMETER, child)
    for child in removed.values():
        root.remove(child)
    return list(options.values())


def xpath_converter(devmode):
    namespaces = {"psf": FRAMEWORK, "psk": KEYWORDS, "ns0000": devmode}
    queries = [etree.XPath(text, namespaces=namespaces) for text in QUERIES]
    removals = [etree.XPath(text, namespaces=namespaces) for text in REMOVAL_QUERIES]

    def convert_by_xpath(tree):
        options = [str(query(tree)[0]) for query in queries]
        for query in removals:
            node = query(tree)[0]
            node.getparent().remove(node)
        return options

    return convert_by_xpath


def turn(text, convert):
    start = time.thread_time()
    tree = etree.ElementTree(etree.fromstring(text))
    loaded = time.thread_time()
    options = convert(tree)
    edited = time.thread_time()
    result = etree.tostring(tree)
    del tree
    end = time.thread_time()
    assert len(options) == 4 and b"PageOutputQuality" not in result, "a turn does not do what it should"
    return edited - loaded, end - start


def measure(text, convert):
    times = [turn(text, convert) for _ in range(TURNS)][TURNS // 4:]  # the first ones warm up
    return [sum(each) / len(times) for each in zip(*times)]


def main():
    with open(sys.argv[1], "rb") as file:
        text = file.read()
    loop, whole = measure(text, convert_by_loop)
    xpath, _ = measure(text, xpath_converter(sys.argv[2]))
    print(loop, xpath, whole)


main()
