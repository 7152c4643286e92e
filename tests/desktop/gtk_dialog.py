# gtk_dialog.py QUEUE : prints two pages through GTK's print dialog. It chooses A5, two-sided, tray 2 and three
# uncollated copies in the dialog's own controls.
# SPDX-License-Identifier: Apache-2.0
import os
import sys

import gi

gi.require_version("Gtk", "3.0")
from gi.repository import GLib, GObject, Gtk  # noqa: E402

(QUEUE,) = sys.argv[1:]
# The controls on the tab for everything that no other tab shows.
ADVANCED = ["PIN", "Wait after proof copy", "Output method", "Folder", "Job name", "Owner name",
            "Job comment", "Collate copies (override)"]
# GTK's own controls, which it shows for every printer.
OF_GTK = ["Pages per side", "Page ordering", "Priority", "Billing info", "Before", "After",
          "Printer Profile"]
# The largest allowed number of the printer's controls on each tab.
MOST = {"Page Setup": 4, "Finishing": 41, "Image Quality": 23, "Color": 14, "Advanced": len(ADVANCED)}
failures = []


def widgets(container):
    yield container
    if isinstance(container, Gtk.Container):
        children = []
        container.forall(children.append)
        for child in children:
            yield from widgets(child)


def texts(combo):
    return [" ".join(text_of(cell) for cell in row) for row in combo.get_model() or []]


def text_of(cell):
    if isinstance(cell, Gtk.PageSetup):
        return str(cell.get_paper_size().get_display_name())
    return str(cell)


# The combo box that the label `name` belongs to. It is the label's mnemonic widget, or inside that widget or
# inside the one next to the label.
def combo_for(dialog, name):
    for widget in widgets(dialog):
        if not isinstance(widget, Gtk.Label) or widget.get_text() != name:
            continue
        place = widget.get_mnemonic_widget()
        if place is None and isinstance(widget.get_parent(), Gtk.Grid):
            grid = widget.get_parent()
            left = grid.child_get_property(widget, "left-attach")
            top = grid.child_get_property(widget, "top-attach")
            place = grid.get_child_at(left + 1, top)
        for inner in widgets(place) if place is not None else []:
            if isinstance(inner, Gtk.ComboBox):
                return inner
    return None


def choose(dialog, name, choice):
    combo = combo_for(dialog, name)
    if combo is None or not combo.get_sensitive():
        failures.append(f"the control {name!r} is missing or grey")
        return
    for index, text in enumerate(texts(combo)):
        if choice in text.split(" ") or text.startswith(choice):
            combo.set_active(index)
            return
    failures.append(f"{name!r} has no {choice!r}, only {texts(combo)}")


# The controls of the printer's options by the name of their tab. They are all the same kind of widget. GTK
# lists them from the last to the first.
def tabs(dialog):
    found = {}
    for widget in widgets(dialog):
        if not isinstance(widget, Gtk.Notebook):
            continue
        for index in range(widget.get_n_pages()):
            page = widget.get_nth_page(index)
            controls = [each for each in widgets(page)
                        if GObject.type_name(each) == "GtkPrinterOptionWidget"]
            found[widget.get_tab_label_text(page)] = controls[::-1]
    return found


def check_tabs(dialog):
    shown = tabs(dialog)
    for name, controls in shown.items():
        labels = [label_of(each) for each in controls]
        print(name, len(labels), labels)
        own = len([each for each in labels if each not in OF_GTK])
        if own > MOST.get(name, 0):
            failures.append(f"the tab {name!r} has {own} controls, more than {MOST.get(name, 0)}")
    for name in ("Finishing", "Image Quality", "Color"):
        if not shown.get(name):
            failures.append(f"the tab {name!r} is empty")
    advanced = [label_of(each) for each in shown.get("Advanced", [])]
    if advanced != ADVANCED:
        failures.append(f"the tab 'Advanced' shows {advanced}")


# A control has a label next to it, or it is a check box with a text.
def label_of(control):
    for widget in widgets(control):
        if isinstance(widget, Gtk.CheckButton) and widget.get_label():
            return widget.get_label()
    for widget in widgets(control.get_parent()):
        if isinstance(widget, Gtk.Label) and widget.get_mnemonic_widget() == control:
            return widget.get_text().rstrip(":")
    return None


def select_printer(dialog):
    for widget in widgets(dialog):
        if isinstance(widget, Gtk.TreeView):
            model = widget.get_model()
            for row in model if model is not None else []:
                if QUEUE in [str(cell) for cell in row]:
                    widget.get_selection().select_path(row.path)


# GTK fills the controls once it has the printer's PPD; until then they are grey.
def is_ready(dialog):
    combo = combo_for(dialog, "Two-sided:")
    return combo is not None and combo.get_sensitive() and len(texts(combo)) == 3


def fill_in(dialog):
    check_tabs(dialog)
    choose(dialog, "Two-sided:", "Long Edge (Standard)")
    choose(dialog, "Paper source:", "Tray 2")
    choose(dialog, "Paper size:", "A5")
    for name in ("Paper type:", "Output tray:"):
        combo = combo_for(dialog, name)
        if combo is None or not combo.get_sensitive() or len(texts(combo)) < 3:
            failures.append(f"the control {name!r} is missing or grey")
    for widget in widgets(dialog):
        if isinstance(widget, Gtk.Label) and widget.get_text() == "Copies:":
            widget.get_mnemonic_widget().set_value(3)
    # This one is grey as long as there is only one copy.
    for widget in widgets(dialog):
        if isinstance(widget, Gtk.CheckButton) and widget.get_label() == "C_ollate":
            widget.set_active(False)


attempts = []


def use_dialog():
    dialogs = [each for each in Gtk.Window.list_toplevels()
               if isinstance(each, Gtk.Dialog) and each.get_visible()]
    attempts.append(1)
    if len(attempts) > 100:
        for each in ("Two-sided:", "Paper source:"):
            combo = combo_for(dialogs[0], each)
            print(each, combo, combo and combo.get_sensitive(), combo and texts(combo))
        shown = [w.get_text() for d in dialogs for w in widgets(d) if isinstance(w, Gtk.Label)]
        print(f"the dialog was never ready; it shows {shown}", flush=True)
        os._exit(1)
    if not dialogs or not is_ready(dialogs[0]):
        if dialogs:
            select_printer(dialogs[0])
        return True
    fill_in(dialogs[0])
    GLib.timeout_add(500, lambda: dialogs[0].response(Gtk.ResponseType.OK))
    return False


def main():
    operation = Gtk.PrintOperation(n_pages=2, job_name="Report", embed_page_setup=True)
    GLib.timeout_add(300, use_dialog)
    result = operation.run(Gtk.PrintOperationAction.PRINT_DIALOG, None)
    if result != Gtk.PrintOperationResult.APPLY:
        failures.append(f"the dialog ended with {result}")
    operation.get_print_settings().foreach(lambda key, value: print(key, value))
    for failure in failures:
        print("FAILED", failure)
    return len(failures) != 0


sys.exit(main())
