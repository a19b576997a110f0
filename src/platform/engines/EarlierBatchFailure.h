#pragma once
// The failure of a batch sent earlier whose answers were read by a later call (see
// Driver::ExecuteDeferred): the error is that batch's, exactly as running it would have raised
// it; the later call's own work never reached the engine.

#include "platform/engines/AdoError.h"

namespace zlx::ado {

class EarlierBatchFailure : public AdoError {
public:
    explicit EarlierBatchFailure(const AdoError& error) : AdoError(error) {}
};

} // namespace zlx::ado
