# qt_dialog.py QUEUE : prints two pages through Qt's print dialog. It chooses A5, two-sided, tray 2 and three
# uncollated copies in the dialog's own controls, by mouse and keyboard.
# SPDX-License-Identifier: Apache-2.0
import sys

from PyQt5.QtCore import Qt, QTimer
from PyQt5.QtGui import QPainter
from PyQt5.QtPrintSupport import QPrintDialog, QPrinter, QPrinterInfo
from PyQt5.QtTest import QTest
from PyQt5.QtWidgets import (QApplication, QCheckBox, QComboBox, QDialogButtonBox, QGroupBox, QLabel,
                             QPushButton, QRadioButton, QSpinBox, QTabWidget, QWidget)

(QUEUE,) = sys.argv[1:]
# The page "Advanced": the PPD's groups in their order.
GROUPS = ["General", "Finishing", "Layout", "Output", "Image quality", "Colour", "Job", "Binding margins",
          "Covers and separator sheets", "Image shift", "Forms"]
failures = []


def click(button):
    if button is None or not button.isEnabled() or not button.isVisible():
        failures.append(f"{button and button.text()} is missing, grey or hidden")
        return
    QTest.mouseClick(button, Qt.LeftButton)


# Radio buttons and check boxes react to a click on their mark at the left.
def click_mark(button):
    if not button.isEnabled() or not button.isVisible():
        failures.append(f"{button.text()} is grey or hidden")
        return
    place = button.rect().center()
    place.setX(8)
    QTest.mouseClick(button, Qt.LeftButton, Qt.NoModifier, place)


# The combo box reports choices made with keys as it reports those made with the mouse.
def choose(combo, text):
    if combo is None or not combo.isEnabled():
        failures.append(f"the control for {text!r} is missing or grey")
        return
    combo.setFocus()
    QTest.keyClick(combo, Qt.Key_Home)
    for _ in range(combo.count()):
        if combo.currentText() != text:
            QTest.keyClick(combo, Qt.Key_Down)
    if combo.currentText() != text:
        failures.append(f"{combo.currentText()!r} is chosen, not {text!r}")


def button_of(dialog, role):
    return dialog.findChild(QDialogButtonBox).button(role)


def show_tab(tabs, page):
    while page.parentWidget() is not None and tabs.indexOf(page) < 0:
        page = page.parentWidget()
    bar = tabs.tabBar()
    QTest.mouseClick(bar, Qt.LeftButton, Qt.NoModifier, bar.tabRect(tabs.indexOf(page)).center())


# The combo box in the row of a label.
def combo_beside(group, label):
    rows = group.layout()
    for row in range(rows.rowCount()):
        name = rows.itemAt(row, rows.LabelRole)
        if name is not None and isinstance(name.widget(), QLabel) and name.widget().text() == label:
            field = rows.itemAt(row, rows.FieldRole).widget()
            return field if isinstance(field, QComboBox) else field.findChild(QComboBox)
    return None


def use_properties():
    dialog = QApplication.activeModalWidget()
    tabs = dialog.findChild(QTabWidget)
    paper = dialog.findChild(QComboBox, "pageSizeCombo")
    show_tab(tabs, paper)
    choose(paper, "A5")
    advanced = dialog.findChild(QWidget, "cupsPropertiesPage")
    show_tab(tabs, advanced)
    groups = advanced.findChildren(QGroupBox)
    if [each.title() for each in groups] != GROUPS:
        failures.append(f"the groups are {[each.title() for each in groups]}")
    choose(combo_beside(groups[0], "Paper source"), "Tray 2")
    # Qt sends its collate box only when it is ticked.
    job = groups[GROUPS.index("Job")]
    choose(combo_beside(job, "Collate copies (override)"), "No")
    click(button_of(dialog, QDialogButtonBox.Ok))


def use_dialog(dialog):
    # The click waits for the second dialog.
    QTimer.singleShot(1000, use_properties)
    click(dialog.findChild(QPushButton, "properties"))
    for button in dialog.findChildren(QPushButton):
        if button.text().startswith("&Options"):
            click(button)
    tabs = dialog.findChild(QTabWidget, "tabs")
    copies = dialog.findChild(QSpinBox, "copies")
    show_tab(tabs, copies)
    copies.setFocus()
    copies.selectAll()
    QTest.keyClicks(copies, "3")
    click_mark(dialog.findChild(QCheckBox, "collate"))
    duplex = dialog.findChild(QRadioButton, "duplexLong")
    show_tab(tabs, duplex)
    click_mark(duplex)
    for button in dialog.findChildren(QPushButton):
        if button.text() == "&Print":
            click(button)
    if dialog.isVisible():
        failures.append("the dialog does not print")
        dialog.reject()


def main():
    app = QApplication(sys.argv[:1])
    printer = QPrinter(QPrinterInfo.printerInfo(QUEUE))
    printer.setDocName("Report")
    dialog = QPrintDialog(printer)
    QTimer.singleShot(1000, lambda: use_dialog(dialog))
    if dialog.exec_() != QPrintDialog.Accepted:
        failures.append("the dialog was not accepted")
    for failure in failures:
        print("FAILED", failure)
    if failures:
        return 1
    painter = QPainter(printer)
    painter.drawText(100, 100, "First page")
    printer.newPage()
    painter.drawText(100, 100, "Second page")
    painter.end()
    del app
    return 0


sys.exit(main())
