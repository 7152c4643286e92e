# libreoffice_dialog.py QUEUE DOCUMENT PIPE : prints a document through the print dialog of the LibreOffice that
# listens on PIPE. It chooses two-sided, tray 2 and three uncollated copies in the dialog's own controls, through
# the interface that LibreOffice's own tests use.
# SPDX-License-Identifier: Apache-2.0
import sys
import threading
import time

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException

QUEUE, DOCUMENT, PIPE = sys.argv[1:]
failures = []


def properties(**values):
    return tuple(PropertyValue(Name=name, Value=value) for name, value in values.items())


def connect():
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstanceWithContext(
        "com.sun.star.bridge.UnoUrlResolver", local)
    for _ in range(600):
        try:
            return resolver.resolve(f"uno:pipe,name={PIPE};urp;StarOffice.ComponentContext")
        except NoConnectException:
            time.sleep(0.2)
    sys.exit("LibreOffice does not listen")


# The window that has the controls.
def window_with(screen, *controls):
    for _ in range(300):
        window = screen.getTopFocusWindow()
        if set(controls) <= set(window.getChildren()):
            return window
        time.sleep(0.1)
    sys.exit(f"no window with {controls}: {window.getChildren()}")


def state(control):
    return {each.Name: each.Value for each in control.getState()}


def choose(window, name, text):
    box = window.getChild(name)
    if state(box)["Enabled"] != "true":
        failures.append(f"{name} is grey")
    for place in range(int(state(box)["EntryCount"])):
        box.executeAction("SELECT", properties(POS=str(place)))
        if state(box)["SelectEntryText"].startswith(text):
            return
    failures.append(f"{name} has no {text!r}")


# The click returns when the second dialog is closed. The field for paper sides in the first dialog is left
# alone, because LibreOffice resets it to one side with any printer. The paper is left alone too, because
# LibreOffice takes the queue's default once this dialog was open.
def properties_dialog(screen, dialog):
    click = threading.Thread(target=dialog.getChild("setup").executeAction, args=("CLICK", ()))
    click.start()
    second = window_with(screen, "slotlb", "duplexlb")
    for name, entries in (("paperlb", "31"), ("slotlb", "7"), ("duplexlb", "3")):
        if state(second.getChild(name))["EntryCount"] != entries:
            failures.append(f"{name} has {state(second.getChild(name))['EntryCount']} entries")
    choose(second, "slotlb", "Tray 2")
    choose(second, "duplexlb", "Long edge")
    second.getChild("ok").executeAction("CLICK", ())
    click.join()


def main():
    context = connect()
    make = context.ServiceManager.createInstanceWithContext
    desktop = make("com.sun.star.frame.Desktop", context)
    document = desktop.loadComponentFromURL(uno.systemPathToFileUrl(DOCUMENT), "_blank", 0, ())
    screen = make("org.libreoffice.uitest.UITest", context)
    window_with(screen, "writer_edit")
    screen.executeDialog(".uno:Print")
    dialog = window_with(screen, "printersbox", "sidesbox")
    choose(dialog, "printersbox", QUEUE)
    properties_dialog(screen, dialog)
    copies = dialog.getChild("copycount")
    copies.executeAction("UP", ())
    copies.executeAction("UP", ())
    dialog.getChild("collate").executeAction("CLICK", ())
    dialog.getChild("ok").executeAction("CLICK", ())
    # The dialog prints and closes by itself.
    window_with(screen, "writer_edit")
    for failure in failures:
        print("FAILED", failure)
    document.close(True)
    desktop.terminate()
    return len(failures) != 0


sys.exit(main())
