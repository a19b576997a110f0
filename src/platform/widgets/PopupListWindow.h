#pragma once
// The pop-up selection list: one column of texts in a small modal window; Enter, a click or
// a double click picks a row, Escape closes without a pick.

#include "platform/companion/PickList.h"

#include <QDialog>

class QListWidget;

namespace zlx {

class PopupListWindow : public QDialog {
    Q_OBJECT
public:
    explicit PopupListWindow(const PopupListRequest& request, QWidget* parent = nullptr);

    QListWidget* List() const { return m_list; }
    // The 1-based row of the current item; 0 when none.
    std::int32_t SelectedRow() const;

private:
    QListWidget* m_list;
};

} // namespace zlx
