#pragma once
// The type-to-search box of the grid windows: "Buscar:" and a line edit named "search",
// added to the window's layout.

class QLineEdit;
class QVBoxLayout;
class QWidget;

namespace zlx {

QLineEdit* AddSearchBox(QWidget& window, QVBoxLayout& layout);

} // namespace zlx
