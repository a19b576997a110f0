#include "platform/widgets/SearchBox.h"

#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace zlx {

QLineEdit* AddSearchBox(QWidget& window, QVBoxLayout& layout) {
    auto* search = new QLineEdit(&window);
    search->setObjectName(QStringLiteral("search"));
    auto* label = new QLabel(QStringLiteral("&Buscar:"), &window);
    label->setBuddy(search);
    layout.addWidget(label);
    layout.addWidget(search);
    return search;
}

} // namespace zlx
