#include "platform/widgets/lbl.h"

#include "platform/companion/QtVariant.h"

void lbl::setValue(const QVariant& value) {
    setText(zlx::FromQVariant(value).ToString());
}
