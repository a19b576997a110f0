#pragma once
// A small connectionless customer table shared by the recordset tests.

#include "platform/engines/AdoError.h"
#include "platform/ado/AdoErrorTexts.h"
#include "platform/ado/Recordset.h"

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace zlx::ado::testing {

// Runs `action` and answers the AdoError number it raised (0 when none).
inline std::int32_t AdoErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const AdoError& e) {
        return e.Number();
    }
    return 0;
}

inline Variant Names(std::initializer_list<const char*> names) {
    std::vector<Variant> items;
    for (const char* n : names)
        items.emplace_back(n);
    return Variant::Array(std::move(items));
}

inline Variant Values(std::vector<Variant> values) {
    return Variant::Array(std::move(values));
}

// nombre text(40), ciudad text(25), codigo int, importe currency, fecha date, activo bool.
inline std::shared_ptr<Recordset> MakeCustomers() {
    auto rs = std::make_shared<Recordset>();
    Fields& f = rs->GetFields();
    f.Append("nombre", adVarWChar, 40);
    f.Append("ciudad", adVarWChar, 25);
    f.Append("codigo", adInteger);
    f.Append("importe", adCurrency);
    f.Append("fecha", adDate);
    f.Append("activo", adBoolean);
    rs->Open();
    const Variant all = Names({"nombre", "ciudad", "codigo", "importe", "fecha", "activo"});
    const struct {
        const char* name;
        const char* city;
        int code;
        double amount;
        int day;
        bool active;
    } rows[] = {{"García", "Madrid", 1, 150.5, 1, true},   {"Pérez", "Sevilla", 2, 80, 2, false},
                {"GARRIDO", "Madrid", 3, 100, 3, true},    {"López", "Bilbao", 4, 300.25, 4, true},
                {"Martínez", "Sevilla", 5, 120, 5, false}, {"Gómez", "Madrid", 6, 99.99, 6, true}};
    for (const auto& r : rows) {
        rs->AddNew(all, Values({Variant(r.name), Variant(r.city), Variant(std::int32_t(r.code)),
                                Variant(Currency::FromDouble(r.amount)),
                                Variant(MakeDate(2024, 3, r.day)), Variant(r.active)}));
    }
    rs->MoveFirst();
    return rs;
}

// The codes of the visible records from the first to the last.
inline std::vector<int> Codes(Recordset& rs, const char* field = "codigo") {
    std::vector<int> codes;
    if (rs.RecordCount() == 0) return codes;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
        codes.push_back(rs.GetFields().Item(QString::fromLatin1(field)).Value().ToLong());
    }
    return codes;
}

} // namespace zlx::ado::testing
