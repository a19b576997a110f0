// Fields, editing, navigation, bookmarks and GetRows of the client-cursor recordset.

#include "RecordsetFixture.h"
#include "platform/ado/RecordsetWriter.h"

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

TEST(RecordsetFields, AppendDefinesTypesSizesAndRefusesDuplicates) {
    Recordset rs;
    Field& code = rs.GetFields().Append("Codigo", adInteger);
    Field& amount = rs.GetFields().Append("Importe", adNumeric);
    amount.SetPrecision(12);
    amount.SetNumericScale(2);
    rs.GetFields().Append("Nombre", adVarWChar, 30, adFldUpdatable | adFldMayBeNull);
    EXPECT_EQ(code.DefinedSize(), 4);
    EXPECT_EQ(code.Precision(), 10);
    EXPECT_EQ(code.Attributes(), adFldUpdatable | adFldIsNullable | adFldMayBeNull | adFldFixed);
    EXPECT_EQ(amount.Precision(), 12);
    EXPECT_EQ(amount.NumericScale(), 2);
    EXPECT_EQ(rs.GetFields().Item("nombre").Attributes(), 68);
    EXPECT_EQ(rs.GetFields().Item(2).DefinedSize(), 30);
    EXPECT_EQ(AdoErrorOf([&] { rs.GetFields().Append("CODIGO", adSmallInt); }),
              adErrObjectInCollection);
    EXPECT_EQ(AdoErrorOf([&] { rs.GetFields().Item("nada"); }), adErrItemNotFound);
    EXPECT_EQ(AdoErrorOf([&] { rs.GetFields().Item(3); }), adErrItemNotFound);
    rs.Open();
    EXPECT_EQ(rs.State(), adStateOpen);
    EXPECT_TRUE(rs.IsBOF());
    EXPECT_TRUE(rs.IsEOF());
    EXPECT_EQ(rs.RecordCount(), 0);
    EXPECT_EQ(AdoErrorOf([&] { rs.GetFields().Append("Otro", adInteger); }), adErrIllegalOperation);
    EXPECT_EQ(AdoErrorOf([&] { amount.SetPrecision(5); }), adErrIllegalOperation);
    EXPECT_EQ(AdoErrorOf([&] { rs.Open(); }), adErrObjectOpen);
}

TEST(RecordsetFields, ValuesKeepTheirFieldTypes) {
    auto rs = MakeCustomers();
    Fields& f = rs->GetFields();
    EXPECT_EQ(f.Item("nombre").Value().VarType(), vbString);
    EXPECT_EQ(f.Item("codigo").Value().VarType(), vbLong);
    EXPECT_EQ(f.Item("importe").Value().VarType(), vbCurrency);
    EXPECT_EQ(f.Item("importe").Value().Get<Currency>()->scaled, 1505000);
    EXPECT_EQ(f.Item("fecha").Value().VarType(), vbDate);
    EXPECT_EQ(f.Item("fecha").Value().Get<Date>()->value, MakeDate(2024, 3, 1).value);
    EXPECT_EQ(f.Item("activo").Value().VarType(), vbBoolean);
    EXPECT_EQ(f.Item(Variant("CIUDAD")).Value().ToString(), "Madrid");
    EXPECT_EQ(f.Item(Variant(std::int32_t(2))).Value().ToLong(), 1);
    EXPECT_EQ(rs->Collect(Variant("Nombre")).ToString(), "García");
    rs->SetCollect(Variant(std::int32_t(2)), Variant(std::int32_t(10)));
    rs->Update();
    EXPECT_EQ(f.Item("codigo").Value().ToLong(), 10);
    EXPECT_EQ(AdoErrorOf([&] { rs->Collect(Variant(2.5e9)); }), adErrItemNotFound);
}

TEST(RecordsetEditing, WrongValuesAreRefusedWithoutChangingTheRecord) {
    auto rs = MakeCustomers();
    Field& code = rs->GetFields().Item("codigo");
    EXPECT_EQ(AdoErrorOf([&] { code.SetValue(Variant("abc")); }), adErrDataConversion);
    EXPECT_EQ(
        AdoErrorOf([&] { rs->GetFields().Item("ciudad").SetValue(Variant(QString(26, u'x'))); }),
        adHrMultipleStep);
    EXPECT_EQ(AdoErrorOf([&] { rs->Update(Variant("nada"), Variant(1)); }), adErrItemNotFound);
    EXPECT_EQ(code.Value().ToLong(), 1);
    EXPECT_EQ(rs->GetFields().Item("ciudad").Value().ToString(), "Madrid");
    EXPECT_EQ(rs->EditMode(), adEditNone);
}

TEST(RecordsetEditing, AddNewUpdateAndCancelUpdate) {
    auto rs = MakeCustomers();
    EXPECT_EQ(rs->RecordCount(), 6);
    EXPECT_EQ(rs->Status(), adRecNew);

    rs->AddNew();
    EXPECT_EQ(rs->EditMode(), adEditAdd);
    EXPECT_EQ(rs->RecordCount(), 7);
    EXPECT_TRUE(rs->GetFields().Item("nombre").Value().IsNull());
    rs->GetFields().Item("nombre").SetValue(Variant("Nuevo"));
    rs->CancelUpdate();
    EXPECT_EQ(rs->RecordCount(), 6);
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 2, 3, 4, 5, 6}));

    rs->AddNew(Variant("codigo"), Variant(std::int32_t(7)));
    EXPECT_EQ(rs->AbsolutePosition(), 7);
    EXPECT_TRUE(rs->GetFields().Item("nombre").Value().IsNull());
    rs->AddNew();
    rs->GetFields().Item("codigo").SetValue(Variant(std::int32_t(8)));
    rs->MoveFirst(); // leaving the new record saves it
    EXPECT_EQ(rs->RecordCount(), 8);
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(RecordsetEditing, UpdateWritesOneFieldOrListsAndKeepsOriginalValue) {
    auto rs = std::make_shared<Recordset>();
    rs->GetFields().Append("a", adInteger);
    rs->GetFields().Append("b", adVarWChar, 10);
    std::vector<Variant> row{Variant(std::int32_t(1)), Variant("uno")};
    rs->Open();
    rs->AppendRow(row); // a record as fetched: unmodified
    rs->FinishOpen(adStateOpen);
    EXPECT_EQ(rs->Status(), adRecUnmodified);
    rs->Update(Variant("b"), Variant("dos"));
    EXPECT_EQ(rs->Status(), adRecModified);
    EXPECT_EQ(rs->GetFields().Item("b").Value().ToString(), "dos");
    EXPECT_EQ(rs->GetFields().Item("b").OriginalValue().ToString(), "uno");
    rs->Update(Names({"a", "b"}), Values({Variant(std::int32_t(5)), Variant::Null()}));
    EXPECT_EQ(rs->GetFields().Item("a").Value().ToLong(), 5);
    EXPECT_TRUE(rs->GetFields().Item("b").Value().IsNull());
    EXPECT_EQ(rs->GetFields().Item("a").OriginalValue().ToLong(), 1);
    EXPECT_EQ(AdoErrorOf([&] {
                  rs->Update(Names({"a", "b"}), Values({Variant(1)}));
              }),
              adErrInvalidArgument);
    rs->GetFields().Item("a").SetValue(Variant(std::int32_t(9)));
    rs->CancelUpdate();
    EXPECT_EQ(rs->GetFields().Item("a").Value().ToLong(), 5);
}

TEST(RecordsetEditing, DeleteLeavesAHoleUntilTheNextMove) {
    auto rs = MakeCustomers();
    rs->Move(2); // codigo 3
    rs->Delete(adAffectCurrent);
    EXPECT_EQ(rs->Status() & adRecDBDeleted, adRecDBDeleted);
    EXPECT_EQ(rs->RecordCount(), 5);
    EXPECT_FALSE(rs->IsEOF());
    EXPECT_EQ(AdoErrorOf([&] { rs->GetFields().Item("codigo").Value(); }), adErrNoCurrentRecord);
    rs->MoveNext();
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 4);
    rs->MoveLast();
    rs->Delete();
    rs->MoveNext();
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 2, 4, 5}));
    rs->SetFilter(Variant("ciudad = 'Sevilla'"));
    rs->Delete(adAffectGroup);
    rs->SetFilter(Variant());
    EXPECT_EQ(Codes(*rs), (std::vector<int>{1, 4}));
}

TEST(RecordsetNavigation, MovesBoundsAndPositions) {
    auto rs = MakeCustomers();
    EXPECT_EQ(rs->AbsolutePosition(), 1);
    rs->MovePrevious();
    EXPECT_TRUE(rs->IsBOF());
    EXPECT_EQ(rs->AbsolutePosition(), adPosBOF);
    EXPECT_EQ(AdoErrorOf([&] { rs->MovePrevious(); }), adErrNoCurrentRecord);
    rs->MoveLast();
    EXPECT_EQ(rs->AbsolutePosition(), 6);
    rs->MoveNext();
    EXPECT_TRUE(rs->IsEOF());
    EXPECT_EQ(rs->AbsolutePosition(), adPosEOF);
    EXPECT_EQ(AdoErrorOf([&] { rs->MoveNext(); }), adErrNoCurrentRecord);
    EXPECT_EQ(AdoErrorOf([&] { rs->Status(); }), adErrNoCurrentRecord);
    rs->Move(3, Variant(std::int32_t(adBookmarkFirst)));
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 4);
    rs->Move(-2);
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 2);
    rs->SetAbsolutePosition(5);
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 5);
    EXPECT_EQ(AdoErrorOf([&] { rs->SetAbsolutePosition(7); }), adErrInvalidArgument);
    rs->Move(100);
    EXPECT_TRUE(rs->IsEOF());
}

TEST(RecordsetNavigation, BookmarksReturnToRecordsAndCompareInOrder) {
    auto rs = MakeCustomers();
    rs->Move(1);
    const Variant second = rs->Bookmark();
    rs->MoveLast();
    const Variant last = rs->Bookmark();
    rs->SetBookmark(second);
    EXPECT_EQ(rs->GetFields().Item("codigo").Value().ToLong(), 2);
    EXPECT_EQ(rs->CompareBookmarks(second, last), adCompareLessThan);
    EXPECT_EQ(rs->CompareBookmarks(last, second), adCompareGreaterThan);
    EXPECT_EQ(rs->CompareBookmarks(last, last), adCompareEqual);
    EXPECT_EQ(rs->CompareBookmarks(last, Variant(99.0)), adCompareNotComparable);
    rs->SetSort("codigo DESC");
    EXPECT_EQ(rs->CompareBookmarks(second, last), adCompareGreaterThan);
    rs->SetFilter(Variant("codigo > 4"));
    EXPECT_EQ(AdoErrorOf([&] { rs->SetBookmark(second); }), adErrNoCurrentRecord);
}

TEST(RecordsetGetRows, ArrayIsFieldByRowAndMovesPastTheRowsRead) {
    auto rs = MakeCustomers();
    const Variant all = rs->GetRows();
    const VariantArrayPtr a = all.ToArray();
    ASSERT_TRUE(a);
    EXPECT_EQ(a->Rank(), 2);
    EXPECT_EQ(a->LBound(1), 0);
    EXPECT_EQ(a->UBound(1), 5);
    EXPECT_EQ(a->LBound(2), 0);
    EXPECT_EQ(a->UBound(2), 5);
    EXPECT_EQ(a->At(0, 3).ToString(), "López");
    EXPECT_EQ(a->At(2, 5).ToLong(), 6);
    EXPECT_TRUE(rs->IsEOF());

    const Variant two =
        rs->GetRows(2, Variant(std::int32_t(adBookmarkFirst)), Names({"codigo", "ciudad"}));
    EXPECT_EQ(two.ToArray()->UBound(1), 1);
    EXPECT_EQ(two.ToArray()->UBound(2), 1);
    EXPECT_EQ(two.ToArray()->At(1, 1).ToString(), "Sevilla");
    EXPECT_EQ(rs->AbsolutePosition(), 3);
    const Variant rest = rs->GetRows(10, Variant(), Variant("codigo"));
    EXPECT_EQ(rest.ToArray()->UBound(1), 0);
    EXPECT_EQ(rest.ToArray()->UBound(2), 3);
    EXPECT_EQ(rest.ToArray()->At(0, 0).ToLong(), 3);
    EXPECT_EQ(AdoErrorOf([&] { rs->GetRows(); }), adErrNoCurrentRecord);
    EXPECT_EQ(
        AdoErrorOf([&] { rs->GetRows(1, Variant(std::int32_t(adBookmarkFirst)), Variant("x")); }),
        adErrItemNotFound);
}

TEST(RecordsetState, ClosedAndReopenedRecordsets) {
    auto rs = MakeCustomers();
    rs->Close();
    EXPECT_EQ(rs->State(), adStateClosed);
    EXPECT_EQ(AdoErrorOf([&] { rs->RecordCount(); }), adErrObjectClosed);
    EXPECT_EQ(AdoErrorOf([&] { rs->MoveFirst(); }), adErrObjectClosed);
    EXPECT_EQ(AdoErrorOf([&] { rs->Close(); }), adErrObjectClosed);
    rs->Open();
    EXPECT_EQ(rs->RecordCount(), 0);
    EXPECT_EQ(rs->GetFields().Count(), 6);
    Recordset empty;
    EXPECT_EQ(AdoErrorOf([&] { empty.Open(); }), adErrInvalidConnection);
    EXPECT_EQ(AdoErrorOf([&] { empty.Requery(); }), adErrObjectClosed);
}

TEST(RecordsetProperties, DynamicPropertiesAndOptimize) {
    Recordset rs;
    Properties& p = rs.GetProperties();
    p.SetItem("Initial Fetch Size", Variant(std::int32_t(1000)));
    p.SetItem("background fetch size", Variant(std::int32_t(1000)));
    EXPECT_EQ(p.Item("Initial Fetch Size").ToLong(), 1000);
    EXPECT_EQ(p.Item("Background Fetch Size").ToLong(), 1000);
    EXPECT_TRUE(p.Item("Preserve On Commit").ToBool());
    EXPECT_EQ(AdoErrorOf([&] { p.Item("No Such Property"); }), adErrItemNotFound);
    auto customers = MakeCustomers();
    Field& city = customers->GetFields().Item("ciudad");
    city.GetProperties().SetItem("Optimize", Variant(true));
    EXPECT_TRUE(city.GetProperties().Item("Optimize").ToBool());
}

TEST(RecordsetWriterLiterals, ByteArraysAreBinaryLiteralsAndOtherArraysAreRefused) {
    EXPECT_EQ(
        RecordsetWriter::Literal(Variant::Array(
            {Variant(std::uint8_t(0)), Variant(std::uint8_t(0xFF)), Variant(std::uint8_t(16))})),
        "0x00FF10");
    EXPECT_EQ(RecordsetWriter::Literal(Variant::Array({})), "0x");
    EXPECT_THROW(RecordsetWriter::Literal(Variant::Array({Variant(std::uint8_t(1)), Variant("a")})),
                 VariantError);
}

TEST(RecordsetEditing, LoadedRecordsAreNewRecordsLikeAddedOnes) {
    auto rs = MakeCustomers();
    const long before = rs->RecordCount();
    rs->GetFields().Item("codigo").GetProperties().SetItem("Optimize", Variant(true));
    rs->Find("codigo = 2"); // builds the index
    rs->SetFilter(Variant("ciudad = 'Madrid'"));
    rs->MoveFirst();
    rs->Update(Variant("importe"), Variant(Currency{10000})); // pending until loading starts
    rs->SetCollect(Variant("importe"), Variant(Currency{20000}));
    rs->BeginLoading(2);
    EXPECT_EQ(rs->EditMode(), adEditNone);
    ColumnStore& name = rs->LoadingColumn(0);
    ColumnStore& code = rs->LoadingColumn(2);
    for (std::int32_t i = 0; i < 2; ++i) {
        EXPECT_TRUE(name.AppendText(i ? u"Sanz" : u"Ruiz"));
        EXPECT_TRUE(code.AppendInteger(7 + i));
        rs->EndLoadedRecord();
    }
    EXPECT_EQ(AdoErrorOf([&] { rs->LoadingColumn(6); }), adErrItemNotFound);
    // Like added records, they join the view whatever the filter, the last one current.
    EXPECT_EQ(rs->RecordCount(), 3 + 2);
    EXPECT_EQ(rs->Status(), adRecNew);
    EXPECT_EQ(rs->Collect(Variant("nombre")).ToString(), "Sanz");
    EXPECT_TRUE(rs->Collect(Variant("ciudad")).IsNull());
    rs->MovePrevious();
    EXPECT_EQ(rs->Collect(Variant("codigo")).ToLong(), 7);
    // Records added together: the last one, given no code, is Null there and current.
    for (const char16_t* text : {u"Gil", u"Roca", u"Vera"})
        EXPECT_TRUE(name.AppendText(text));
    EXPECT_TRUE(code.AppendInteger(30));
    EXPECT_TRUE(code.AppendInteger(31));
    rs->EndLoadedRecords(3);
    EXPECT_EQ(rs->RecordCount(), 3 + 5);
    EXPECT_EQ(rs->Collect(Variant("nombre")).ToString(), "Vera");
    EXPECT_TRUE(rs->Collect(Variant("codigo")).IsNull());
    EXPECT_EQ(rs->Status(), adRecNew);
    rs->MovePrevious();
    EXPECT_EQ(rs->Collect(Variant("nombre")).ToString(), "Roca");
    EXPECT_EQ(rs->Collect(Variant("codigo")).ToLong(), 31);
    rs->SetFilter(Variant());
    EXPECT_EQ(rs->RecordCount(), before + 5);
    rs->Find("codigo = 30", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
    ASSERT_FALSE(rs->IsEOF());
    EXPECT_EQ(rs->Collect(Variant("nombre")).ToString(), "Gil");
    rs->Find("codigo = 8", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
    ASSERT_FALSE(rs->IsEOF());
    EXPECT_EQ(rs->Collect(Variant("nombre")).ToString(), "Sanz");
    rs->Find("codigo = 1", 0, adSearchForward, Variant(std::int32_t(adBookmarkFirst)));
    EXPECT_EQ(rs->Collect(Variant("importe")).ToCurrency().scaled, 20000);

    Recordset closed;
    EXPECT_EQ(AdoErrorOf([&] { closed.BeginLoading(1); }), adErrObjectClosed);
}
