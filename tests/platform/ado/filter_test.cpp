// Filter, Sort and Find criteria on the client-cursor recordset, with and without the
// "Optimize" index, plus random criteria that must never crash the parser.

#include "RecordsetFixture.h"

#include <QRandomGenerator>

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

namespace {
std::vector<int> Filtered(Recordset& rs, const char* criteria) {
    rs.SetFilter(Variant(criteria));
    return Codes(rs);
}
} // namespace

TEST(RecordsetFilter, ComparisonsLikeDatesAndNulls) {
    auto rs = MakeCustomers();
    EXPECT_EQ(Filtered(*rs, "nombre LIKE 'GAR*'"), (std::vector<int>{1, 3}));
    EXPECT_EQ(Filtered(*rs, "nombre LIKE 'gar%'"), (std::vector<int>{1, 3}));
    EXPECT_EQ(Filtered(*rs, "nombre LIKE '*ez'"), (std::vector<int>{2, 4, 5, 6}));
    EXPECT_EQ(Filtered(*rs, "nombre LIKE '%AR%'"), (std::vector<int>{1, 3, 5}));
    EXPECT_EQ(Filtered(*rs, "nombre = 'garcía'"), (std::vector<int>{1}));
    EXPECT_EQ(Filtered(*rs, "importe > 100"), (std::vector<int>{1, 4, 5}));
    EXPECT_EQ(Filtered(*rs, "importe >= 100"), (std::vector<int>{1, 3, 4, 5}));
    EXPECT_EQ(Filtered(*rs, "importe <= 99.99"), (std::vector<int>{2, 6}));
    EXPECT_EQ(Filtered(*rs, "codigo <> 3"), (std::vector<int>{1, 2, 4, 5, 6}));
    EXPECT_EQ(Filtered(*rs, "fecha < #2024-03-03#"), (std::vector<int>{1, 2}));
    EXPECT_EQ(Filtered(*rs, "fecha = #03/05/2024#"), (std::vector<int>{5}));
    EXPECT_EQ(Filtered(*rs, "ciudad > 'M'"), (std::vector<int>{1, 2, 3, 5, 6}));
    EXPECT_EQ(Filtered(*rs, "[ciudad] = 'O''Donnell'"), (std::vector<int>{}));
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_TRUE(rs->IsEOF());

    rs->SetFilter(Variant());
    rs->Move(1);
    rs->GetFields().Item("ciudad").SetValue(Variant::Null());
    rs->Update();
    EXPECT_EQ(Filtered(*rs, "ciudad = Null"), (std::vector<int>{2}));
    EXPECT_EQ(Filtered(*rs, "ciudad <> NULL"), (std::vector<int>{1, 3, 4, 5, 6}));
    EXPECT_EQ(Filtered(*rs, "ciudad < 'z'"), (std::vector<int>{1, 3, 4, 5, 6}));
}

TEST(RecordsetFilter, AndOrAndParentheses) {
    auto rs = MakeCustomers();
    EXPECT_EQ(Filtered(*rs, "nombre LIKE 'GAR*' AND importe > 100"), (std::vector<int>{1}));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'Bilbao' OR codigo = 2 AND activo = 0"),
              (std::vector<int>{2, 4}));
    EXPECT_EQ(Filtered(*rs, "(ciudad = 'Madrid' AND importe < 100) OR (ciudad = 'Sevilla' AND "
                            "importe > 100)"),
              (std::vector<int>{5, 6}));
    EXPECT_EQ(Filtered(*rs, "(ciudad = 'Madrid' OR ciudad = 'Bilbao') AND activo = -1"),
              (std::vector<int>{1, 3, 4, 6}));
    EXPECT_EQ(rs->Filter().ToString(), "(ciudad = 'Madrid' OR ciudad = 'Bilbao') AND activo = -1");
    rs->SetFilter(Variant(""));
    EXPECT_EQ(rs->RecordCount(), 6);
    EXPECT_EQ(rs->Filter().ToLong(), adFilterNone);
}

TEST(RecordsetFilter, FilterGroupsSelectByStatus) {
    auto rs = std::make_shared<Recordset>();
    rs->GetFields().Append("n", adInteger);
    rs->Open();
    for (int i = 1; i <= 4; ++i) {
        std::vector<Variant> row{Variant(std::int32_t(i))};
        rs->AppendRow(row);
    }
    rs->FinishOpen(adStateOpen);
    rs->Move(1);
    rs->Update(Variant("n"), Variant(std::int32_t(20)));
    rs->AddNew(Variant("n"), Variant(std::int32_t(5)));
    rs->SetFilter(Variant(std::int32_t(adFilterPendingRecords)));
    EXPECT_EQ(Codes(*rs, "n"), (std::vector<int>{20, 5}));
    rs->SetFilter(Variant(std::int32_t(adFilterFetchedRecords)));
    EXPECT_EQ(rs->RecordCount(), 5);
    EXPECT_EQ(AdoErrorOf([&] { rs->SetFilter(Variant(std::int32_t(9))); }), adErrInvalidArgument);
}

TEST(RecordsetFilter, BadCriteriaRaiseAdoErrorsAndKeepThePreviousFilter) {
    auto rs = MakeCustomers();
    rs->SetFilter(Variant("codigo < 3"));
    struct {
        const char* text;
        std::int32_t error;
    } cases[] = {{"codigo >", adErrInvalidArgument},
                 {"codigo = 1 AND", adErrInvalidArgument},
                 {"(codigo = 1", adErrInvalidArgument},
                 {"codigo = 1)", adErrInvalidArgument},
                 {"nombre = 'abc", adErrInvalidArgument},
                 {"nombre LIKE 'G*A'", adErrInvalidArgument},
                 {"codigo LIKE '1*'", adErrInvalidArgument},
                 {"codigo < Null", adErrInvalidArgument},
                 {"fecha = #31/31/2024#", adErrInvalidArgument},
                 {"codigo == 1", adErrInvalidArgument},
                 {"nada = 1", adErrItemNotFound},
                 {"codigo = 'abc'", adErrDataConversion}};
    for (const auto& c : cases) {
        EXPECT_EQ(AdoErrorOf([&] { rs->SetFilter(Variant(c.text)); }), c.error) << c.text;
    }
    EXPECT_EQ(rs->Filter().ToString(), "codigo < 3");
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 2}));
}

TEST(RecordsetSort, SortsByKeysKeepingTheCurrentRecord) {
    auto rs = MakeCustomers();
    rs->Move(3); // López
    rs->SetSort("ciudad, importe DESC");
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 4);
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    EXPECT_EQ(Codes(*rs), (std::vector<int>{4, 1, 3, 6, 5, 2}));
    rs->SetSort("nombre");
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 3, 6, 4, 5, 2}));
    rs->SetFilter(Variant("ciudad = 'Madrid'"));
    rs->SetSort("[importe] ASC");
    EXPECT_EQ(Codes(*rs), (std::vector<int>{6, 3, 1}));
    EXPECT_EQ(AdoErrorOf([&] { rs->SetSort("nada DESC"); }), adErrItemNotFound);
    EXPECT_EQ(rs->Sort(), "[importe] ASC");
    rs->SetSort("");
    rs->SetFilter(Variant());
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

// Texts sort without regard to case, accented letters next to their base letter, in both
// the path for few distinct values and the one for many.
TEST(RecordsetSort, AccentedLettersSortNextToTheirBaseLetter) {
    const std::vector<const char*> names = {"Zapata", "Ávila", "alba", "Álvarez", "ÁVILA",
                                            "avila",  "Ñu",    "nube", "Alba"};
    const std::vector<int> expected = {3, 9, 4, 6, 2, 5, 7, 8, 1};
    for (const int copies : {1, 8000}) {
        Recordset rs;
        rs.GetFields().Append("n", adInteger);
        rs.GetFields().Append("nombre", adVarWChar, 40);
        rs.Open();
        for (int copy = 0; copy < copies; ++copy) {
            for (std::size_t i = 0; i < names.size(); ++i) {
                // Further copies carry a distinct suffix so that the column has many values.
                const QString suffix =
                    copy == 0 ? QString() : QStringLiteral(" %1").arg(copy, 5, 10, QChar(u'0'));
                rs.AddNew(Names({"n", "nombre"}),
                          Values({Variant(static_cast<std::int32_t>(i + 1 + copy * 100)),
                                  Variant(QString::fromUtf8(names[i]) + suffix)}));
            }
        }
        rs.SetSort("nombre");
        // The rows without a suffix, in the order the sort gives them.
        std::vector<int> originals;
        for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext()) {
            const int n = rs.GetFields().Item("n").Value().ToLong();
            if (n < 100) originals.push_back(n);
        }
        EXPECT_EQ(originals, expected) << copies;
    }
}

TEST(RecordsetFilter, TextOrderPutsAccentedLettersNextToTheirBaseLetter) {
    Recordset rs;
    rs.GetFields().Append("nombre", adVarWChar, 40);
    rs.Open();
    for (const char* name : {"Álvarez", "Beltrán", "Ñu", "Óscar", "nube"})
        rs.AddNew(Names({"nombre"}), Values({Variant(QString::fromUtf8(name))}));
    rs.SetFilter(Variant("nombre >= 'B' AND nombre < 'O'"));
    QStringList kept;
    for (rs.MoveFirst(); !rs.IsEOF(); rs.MoveNext())
        kept << rs.GetFields().Item("nombre").Value().ToString();
    EXPECT_EQ(kept, (QStringList{"Beltrán", "Ñu", "nube"}));
    rs.SetFilter(Variant("nombre = 'ÁLVAREZ'"));
    EXPECT_EQ(rs.RecordCount(), 1);
}

TEST(RecordsetFind, SearchesFromTheCurrentRecordInBothDirections) {
    for (bool optimized : {false, true}) {
        auto rs = MakeCustomers();
        rs->GetFields().Item("ciudad").GetProperties().SetItem("Optimize", Variant(optimized));
        rs->Find("ciudad = 'madrid'");
        EXPECT_EQ(rs->AbsolutePosition(), 1);
        rs->Find("ciudad = 'Madrid'", 1);
        EXPECT_EQ(rs->AbsolutePosition(), 3);
        rs->Find("ciudad = 'Madrid'", 1);
        EXPECT_EQ(rs->AbsolutePosition(), 6);
        rs->Find("ciudad = 'Madrid'", 1);
        EXPECT_TRUE(rs->IsEOF());
        rs->MoveLast();
        rs->Find("ciudad = 'Sevilla'", 0, adSearchBackward);
        EXPECT_EQ(rs->AbsolutePosition(), 5);
        rs->Find("ciudad = 'Sevilla'", 1, adSearchBackward);
        EXPECT_EQ(rs->AbsolutePosition(), 2);
        rs->Find("ciudad = 'Sevilla'", 1, adSearchBackward);
        EXPECT_TRUE(rs->IsBOF());
        rs->Find("importe > 200", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
        EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 4);
        rs->SetSort("codigo DESC");
        rs->Find("ciudad = 'Madrid'", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
        EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 6);
        rs->Update(Variant("ciudad"), Variant("Toledo"));
        rs->Find("ciudad = 'Madrid'", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
        EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 3) << optimized;
    }
}

TEST(RecordsetFind, OptimizedFilterOnEqualityMatchesTheScan) {
    auto rs = MakeCustomers();
    rs->GetFields().Item("codigo").GetProperties().SetItem("Optimize", Variant(true));
    EXPECT_EQ(Filtered(*rs, "codigo = 4"), (std::vector<int>{4}));
    rs->SetFilter(Variant());
    rs->Move(3);
    rs->Delete();
    EXPECT_EQ(Filtered(*rs, "codigo = 4"), (std::vector<int>{}));
}

TEST(RecordsetFind, RefusesCompoundCriteriaAndNeedsACurrentRecord) {
    auto rs = MakeCustomers();
    EXPECT_EQ(AdoErrorOf([&] { rs->Find("codigo = 1 AND codigo = 2"); }), adErrInvalidArgument);
    EXPECT_EQ(AdoErrorOf([&] { rs->Find("nada = 1"); }), adErrItemNotFound);
    rs->MoveLast();
    rs->MoveNext();
    EXPECT_EQ(AdoErrorOf([&] { rs->Find("codigo = 1"); }), adErrNoCurrentRecord);
}

TEST(RecordsetFilter, RandomCriteriaNeverCrash) {
    auto rs = MakeCustomers();
    const QString alphabet = QStringLiteral("nombre codigo importe fecha ANDOR LIKE Null()[]'#*%=<>"
                                            "0123456789.- ");
    QRandomGenerator random(20240301);
    int accepted = 0;
    for (int i = 0; i < 3000; ++i) {
        QString text;
        const int length = random.bounded(1, 40);
        for (int k = 0; k < length; ++k)
            text += alphabet[random.bounded(int(alphabet.size()))];
        if (i % 3 == 0) text = QStringLiteral("codigo = %1 %2").arg(i).arg(text);
        try {
            rs->SetFilter(Variant(text));
            ++accepted;
        } catch (const AdoError& e) {
            EXPECT_TRUE(e.Number() == adErrInvalidArgument || e.Number() == adErrItemNotFound ||
                        e.Number() == adErrDataConversion)
                << e.Number();
        }
    }
    rs->SetFilter(Variant("codigo = 2 OR codigo = 5"));
    EXPECT_EQ(Codes(*rs), (std::vector<int>{2, 5}));
    EXPECT_GT(accepted, 0);
}

TEST(RecordsetSort, TextKeysIgnoreCaseKeepTiesInOrderAndPutNullsFirst) {
    Recordset rs;
    rs.GetFields().Append("n", adInteger);
    rs.GetFields().Append("t", adVarWChar, 10);
    rs.GetFields().Append("x", adDouble);
    rs.Open();
    const struct {
        int n;
        const char* t;
        double x;
    } rows[] = {{1, "beta", 2}, {2, "Alfa", 1}, {3, nullptr, 5}, {4, "BETA", 2}, {5, "alfa", 3}};
    for (const auto& r : rows) {
        rs.AddNew(Names({"n", "t", "x"}),
                  Values({Variant(std::int32_t(r.n)), r.t ? Variant(r.t) : Variant::Null(),
                          Variant(r.x)}));
    }
    rs.SetSort("t");
    EXPECT_EQ(Codes(rs, "n"), (std::vector<int>{3, 2, 5, 1, 4}));
    rs.SetSort("t DESC, x DESC");
    EXPECT_EQ(Codes(rs, "n"), (std::vector<int>{1, 4, 5, 2, 3}));
    rs.SetSort("x DESC, n");
    EXPECT_EQ(Codes(rs, "n"), (std::vector<int>{3, 5, 1, 4, 2}));
}

TEST(RecordsetFilter, OptimizedTextFieldFollowsEdits) {
    auto rs = MakeCustomers();
    rs->GetFields().Item("ciudad").GetProperties().SetItem("Optimize", Variant(true));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'SEVILLA'"), (std::vector<int>{2, 5}));
    rs->MoveFirst(); // codigo 2, the first of the filtered records
    rs->Update(Variant("ciudad"), Variant("Bilbao"));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'bilbao'"), (std::vector<int>{2, 4}));
    rs->SetFilter(Variant());
    rs->Move(4); // codigo 5
    rs->Update(Variant("ciudad"), Variant("Bilbao"));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'bilbao'"), (std::vector<int>{2, 4, 5}));
    rs->SetFilter(Variant());
    rs->AddNew(Names({"codigo", "ciudad"}), Values({Variant(std::int32_t(7)), Variant("BILBAO")}));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'Bilbao'"), (std::vector<int>{2, 4, 5, 7}));
    EXPECT_EQ(Filtered(*rs, "ciudad = 'Sevilla'"), (std::vector<int>{}));
}

// Keys that read as integers (integers, currency, text ranks) are sorted packed together; with
// more than three keys every kind is compared value by value. Both must give one order, nulls
// and ties included, whatever the keys' signs, sizes and directions.
TEST(RecordsetSort, PackedKeysOrderAsKeysComparedOneByOne) {
    Recordset rs;
    Fields& fields = rs.GetFields();
    fields.Append("n", adInteger);
    fields.Append("small", adSmallInt);
    fields.Append("money", adCurrency);
    fields.Append("huge", adCurrency);
    fields.Append("city", adVarWChar, 12);
    fields.Append("name", adVarWChar, 12);
    fields.Append("flag", adBoolean);
    fields.Append("same", adInteger);
    rs.Open();
    const char* const cities[] = {"Vigo", "ávila", "Lugo", "VIGO", "León"};
    for (int i = 0; i < 3000; ++i) {
        const auto nullEvery = [i](int n, Variant value) {
            return i % n ? value : Variant::Null();
        };
        rs.AddNew(Names({"n", "small", "money", "huge", "city", "name", "flag", "same"}),
                  Values({Variant(std::int32_t(i)),
                          nullEvery(11, Variant(std::int16_t((i * 37) % 19 - 9))),
                          nullEvery(7, Variant(Currency{(i * 7919) % 1000 - 500})),
                          Variant(Currency{(i % 3 - 1) * (std::int64_t{1} << 50) + i % 5}),
                          nullEvery(13, Variant(cities[i % 5])),
                          Variant(QStringLiteral("N%1").arg((i * 31) % 997)), Variant(i % 4 == 0),
                          Variant(std::int32_t(0))}));
    }
    const std::vector<QString> sorts = {
        "small",           "small DESC, money",          "city, small DESC", "money DESC, name",
        "flag, huge DESC", "name DESC, city DESC, small"};
    for (const QString& sort : sorts) {
        rs.SetSort(sort);
        const std::vector<int> packed = Codes(rs, "n");
        rs.SetSort(sort + ", same, same, same");
        EXPECT_EQ(packed, Codes(rs, "n")) << sort.toStdString();
    }
}
