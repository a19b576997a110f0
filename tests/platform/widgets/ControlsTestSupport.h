#pragma once
// Helpers of the control tests: typing into a widget as the keyboard does, and screenshots
// written to the test folder and to the documentation.

#include <QWidget>

// Sends each character as a key press with its text, then optionally Enter.
void Type(QWidget* widget, const QString& text, bool enter = false);
// Sends a key without text (Enter, Escape, arrows).
void Press(QWidget* widget, int key);
// Grabs the widget into <name>.png in the test folder and in docs/screenshots; answers the
// path in the test folder.
QString SaveScreenshot(QWidget& widget, const QString& name);
