#pragma once
// The pictures of the record-form toolbar, drawn at run time: 201 to 204 the moves (first,
// previous, next, last), 205 to 209 the record buttons (new, edit, delete, search, comment).

#include <QIcon>

namespace zlx {

class FichaToolbarIcons {
public:
    // An empty icon for any other number.
    static QIcon Icon(int nImage);
};

} // namespace zlx
