// Saving a recordset in the XML rowset format and opening such files, including one typed by
// hand the way ADO writes them, corrupt files and random mutations of a saved file.

#include "RecordsetFixture.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>

using namespace zlx;
using namespace zlx::ado;
using namespace zlx::ado::testing;

namespace {

QString TempPath(const QString& name) {
    QString dir = qEnvironmentVariable("ZLX_TEST_TMP", QDir::tempPath());
    QDir().mkpath(dir);
    const QString path = dir + QStringLiteral("/ado_") + name;
    QFile::remove(path);
    return path;
}

void WriteText(const QString& path, const QByteArray& text) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
}

QByteArray ReadText(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const char kHandTyped[] = R"(<xml xmlns:s='uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882'
	xmlns:dt='uuid:C2F41010-65B3-11d1-A29F-00AA00C14882'
	xmlns:rs='urn:schemas-microsoft-com:rowset'
	xmlns:z='#RowsetSchema'>
<s:Schema id='RowsetSchema'>
	<s:ElementType name='row' content='eltOnly' rs:updatable='true'>
		<s:AttributeType name='ZolmarID' rs:number='1' rs:basetable='Clientes' rs:basecolumn='ZolmarID' rs:keycolumn='true'>
			<s:datatype dt:type='int' dt:maxLength='4' rs:precision='10' rs:fixedlength='true' rs:maybenull='false'/>
		</s:AttributeType>
		<s:AttributeType name='c1' rs:name='Razón Social' rs:number='2' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='string' rs:dbtype='str' dt:maxLength='50'/>
		</s:AttributeType>
		<s:AttributeType name='Saldo' rs:number='3' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='number' rs:dbtype='currency' dt:maxLength='8' rs:precision='19' rs:fixedlength='true'/>
		</s:AttributeType>
		<s:AttributeType name='Alta' rs:number='4' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='dateTime' rs:dbtype='variantdate' dt:maxLength='16' rs:fixedlength='true'/>
		</s:AttributeType>
		<s:AttributeType name='Limite' rs:number='5' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='number' rs:dbtype='numeric' dt:maxLength='19' rs:scale='2' rs:precision='12' rs:fixedlength='true'/>
		</s:AttributeType>
		<s:AttributeType name='Moroso' rs:number='6' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='boolean' dt:maxLength='2' rs:fixedlength='true'/>
		</s:AttributeType>
		<s:AttributeType name='Notas' rs:number='7' rs:nullable='true' rs:writeunknown='true'>
			<s:datatype dt:type='string' dt:maxLength='1073741823' rs:long='true'/>
		</s:AttributeType>
		<s:extends type='rs:rowbase'/>
	</s:ElementType>
</s:Schema>
<rs:data>
	<z:row ZolmarID='1' c1='Hnos. &amp; Cía' Saldo='1234.5' Alta='1998-04-01T00:00:00' Limite='5000.25' Moroso='False' Notas='línea 1&#x0A;línea 2'/>
	<z:row ZolmarID='2' Alta='2001-12-31T23:59:58' Moroso='True'/>
	<rs:insert>
		<z:row ZolmarID='3' c1='Nuevo'/>
	</rs:insert>
</rs:data>
</xml>
)";

} // namespace

TEST(RecordsetXml, OpensAFileWrittenInAdosRowsetFormat) {
    const QString path = TempPath("hand.xml");
    WriteText(path, kHandTyped);
    Recordset rs;
    rs.Open(path);
    EXPECT_EQ(rs.State(), adStateOpen);
    EXPECT_EQ(rs.RecordCount(), 3);
    const Fields& f = rs.GetFields();
    ASSERT_EQ(f.Count(), 7);
    EXPECT_EQ(f.Item(0).Type(), adInteger);
    EXPECT_EQ(f.Item(0).Attributes() & (adFldKeyColumn | adFldMayBeNull | adFldFixed),
              adFldKeyColumn | adFldFixed);
    EXPECT_EQ(f.Item(0).Definition().baseTable, "Clientes");
    EXPECT_EQ(f.Item(1).Name(), "Razón Social");
    EXPECT_EQ(f.Item(1).Type(), adVarChar);
    EXPECT_EQ(f.Item(1).DefinedSize(), 50);
    EXPECT_EQ(f.Item(1).Attributes() & adFldIsNullable, adFldIsNullable);
    EXPECT_EQ(f.Item(2).Type(), adCurrency);
    EXPECT_EQ(f.Item(3).Type(), adDate);
    EXPECT_EQ(f.Item(4).Type(), adNumeric);
    EXPECT_EQ(f.Item(4).Precision(), 12);
    EXPECT_EQ(f.Item(4).NumericScale(), 2);
    EXPECT_EQ(f.Item(5).Type(), adBoolean);
    EXPECT_EQ(f.Item(6).Type(), adLongVarWChar);
    EXPECT_EQ(f.Item(6).Attributes() & adFldLong, adFldLong);

    EXPECT_EQ(f.Item(1).Value().ToString(), "Hnos. & Cía");
    EXPECT_EQ(f.Item(2).Value().Get<Currency>()->scaled, 12345000);
    EXPECT_EQ(f.Item(3).Value().Get<Date>()->value, MakeDate(1998, 4, 1).value);
    EXPECT_EQ(f.Item(4).Value().ToDecimal().ToString(), "5000.25");
    EXPECT_FALSE(f.Item(5).Value().ToBool());
    EXPECT_EQ(f.Item(6).Value().ToString(), QString::fromUtf8("línea 1\nlínea 2"));
    rs.MoveNext();
    EXPECT_TRUE(f.Item(1).Value().IsNull());
    EXPECT_TRUE(f.Item(2).Value().IsNull());
    EXPECT_EQ(f.Item(3).Value().Get<Date>()->value, MakeDate(2001, 12, 31, 23, 59, 58).value);
    EXPECT_TRUE(f.Item(5).Value().ToBool());
    rs.MoveNext();
    EXPECT_EQ(f.Item(1).Value().ToString(), "Nuevo");
}

TEST(RecordsetXml, RoundTripKeepsTypesSizesValuesAndNullsOfEveryRecord) {
    const QString first = TempPath("first.xml");
    WriteText(first, kHandTyped);
    Recordset source;
    source.Open(first);
    source.SetFilter(Variant("ZolmarID = 2"));
    const QString second = TempPath("second.xml");
    source.Save(second, adPersistXML);
    EXPECT_EQ(AdoErrorOf([&] { source.Save(second); }), adErrWriteFile);
    EXPECT_EQ(AdoErrorOf([&] { source.Save(TempPath("adtg"), adPersistADTG); }),
              adErrFeatureNotAvailable);
    const QByteArray text = ReadText(second);
    EXPECT_TRUE(text.contains("xmlns:s=\"uuid:BDC6E3F0-6DA3-11d1-A2A3-00AA00C14882\""));
    EXPECT_TRUE(text.contains("xmlns:z=\"#RowsetSchema\""));
    EXPECT_TRUE(text.contains("Alta=\"1998-04-01T00:00:00\""));
    EXPECT_TRUE(text.contains("rs:name=\"Razón Social\""));
    EXPECT_TRUE(text.contains("Saldo=\"1234.5\""));

    Recordset copy;
    copy.Open(second);
    ASSERT_EQ(copy.RecordCount(), 3);
    for (int i = 0; i < source.GetFields().Count(); ++i) {
        const Field& a = source.GetFields().Item(i);
        const Field& b = copy.GetFields().Item(i);
        EXPECT_EQ(a.Name(), b.Name());
        EXPECT_EQ(a.Type(), b.Type()) << a.Name().toStdString();
        EXPECT_EQ(a.DefinedSize(), b.DefinedSize()) << a.Name().toStdString();
        EXPECT_EQ(a.Precision(), b.Precision()) << a.Name().toStdString();
        EXPECT_EQ(a.NumericScale(), b.NumericScale());
        EXPECT_EQ(a.Attributes(), b.Attributes()) << a.Name().toStdString();
    }
    source.SetFilter(Variant());
    const Variant before = source.GetRows();
    const Variant after = copy.GetRows();
    const auto& x = before.ToArray()->Data();
    const auto& y = after.ToArray()->Data();
    ASSERT_EQ(x.size(), y.size());
    for (std::size_t i = 0; i < x.size(); ++i) {
        EXPECT_EQ(x[i].IsNull(), y[i].IsNull()) << i;
        EXPECT_EQ(x[i].VarType(), y[i].VarType()) << i;
        if (!x[i].IsNull()) {
            EXPECT_TRUE(x[i].Equals(y[i])) << i;
        }
    }
}

TEST(RecordsetXml, BuiltRecordsetRoundTripsEveryFieldKind) {
    Recordset rs;
    Fields& f = rs.GetFields();
    f.Append("i2", adSmallInt);
    f.Append("i8", adBigInt);
    f.Append("r4", adSingle);
    f.Append("r8", adDouble);
    f.Append("ts", adDBTimeStamp);
    f.Append("fijo", adWChar, 5);
    f.Append("dec", adDecimal).SetPrecision(28);
    f.Append("bin", adVarBinary, 8);
    f.Append("1 raro", adVarWChar, 10);
    rs.Open();
    rs.AddNew(Names({"i2", "i8", "r4", "r8", "ts", "fijo", "dec", "bin", "1 raro"}),
              Values({Variant(std::int16_t(-7)), Variant::FromInt64(9007199254740993LL),
                      Variant(1.5f), Variant(0.1), Variant(MakeDate(1753, 1, 1)), Variant("ab<c"),
                      Variant(Decimal::FromString("-12.3400")),
                      Variant::Array({Variant(std::uint8_t(0)), Variant(std::uint8_t(255))}),
                      Variant("x'y\"z")}));
    rs.AddNew();
    rs.Update();
    const QString path = TempPath("kinds.xml");
    rs.Save(path);
    Recordset back;
    back.Open(path);
    ASSERT_EQ(back.RecordCount(), 2);
    const Fields& g = back.GetFields();
    EXPECT_EQ(g.Item("i2").Value().ToLong(), -7);
    EXPECT_EQ(g.Item("i8").Value().ToInt64(), 9007199254740993LL);
    EXPECT_EQ(g.Item("r4").Value().ToSingle(), 1.5f);
    EXPECT_EQ(g.Item("r8").Value().ToDouble(), 0.1);
    EXPECT_EQ(g.Item("ts").Value().ToDate().value, MakeDate(1753, 1, 1).value);
    EXPECT_EQ(g.Item("fijo").Type(), adWChar);
    EXPECT_EQ(g.Item("fijo").Value().ToString(), "ab<c");
    EXPECT_EQ(g.Item("dec").Type(), adDecimal);
    EXPECT_EQ(g.Item("dec").Precision(), 28);
    EXPECT_EQ(g.Item("dec").Value().ToDecimal().Compare(Decimal::FromString("-12.34")), 0);
    const VariantArrayPtr bytes = g.Item("bin").Value().ToArray();
    ASSERT_TRUE(bytes);
    ASSERT_EQ(bytes->Size(), 2u);
    EXPECT_EQ(bytes->At(1).ToLong(), 255);
    EXPECT_EQ(g.Item("1 raro").Value().ToString(), "x'y\"z");
    back.MoveNext();
    for (int i = 0; i < g.Count(); ++i)
        EXPECT_TRUE(g.Item(i).Value().IsNull()) << i;
}

TEST(RecordsetXml, CorruptFilesRaiseReadErrorsAndLeaveTheRecordsetClosed) {
    const QByteArray good(kHandTyped);
    const struct {
        const char* name;
        QByteArray text;
    } cases[] = {
        {"truncated", good.left(good.size() / 2)},
        {"no data", good.left(good.indexOf("<rs:data>")) + "</xml>"},
        {"unknown attribute", QByteArray(good).replace("ZolmarID='2'", "Nada='2'")},
        {"bad number", QByteArray(good).replace("ZolmarID='2'", "ZolmarID='dos'")},
        {"bad date", QByteArray(good).replace("2001-12-31T23:59:58", "2001-13-31T23:59:58")},
        {"unknown type", QByteArray(good).replace("dt:type='boolean'", "dt:type='wat'")},
        {"too long", QByteArray(good).replace("dt:maxLength='50'", "dt:maxLength='3'")},
        {"not xml", QByteArray("hello")},
    };
    for (const auto& c : cases) {
        const QString path = TempPath("corrupt.xml");
        WriteText(path, c.text);
        Recordset rs;
        EXPECT_EQ(AdoErrorOf([&] { rs.Open(path); }), adErrReadFile) << c.name;
        EXPECT_EQ(rs.State(), adStateClosed) << c.name;
    }
    Recordset rs;
    EXPECT_EQ(AdoErrorOf([&] { rs.Open(TempPath("missing.xml")); }), adErrOpeningFile);
}

TEST(RecordsetXml, MutatedFilesNeverCrashTheReader) {
    const QByteArray good(kHandTyped);
    QRandomGenerator random(77);
    const QString path = TempPath("mutated.xml");
    int opened = 0;
    for (int i = 0; i < 400; ++i) {
        QByteArray text = good;
        const int edits = random.bounded(1, 6);
        for (int k = 0; k < edits; ++k) {
            const int at = random.bounded(int(text.size()));
            switch (random.bounded(3)) {
            case 0:
                text[at] = char(random.bounded(32, 127));
                break;
            case 1:
                text.remove(at, random.bounded(1, 20));
                break;
            default:
                text.insert(at, text.mid(random.bounded(int(text.size())), random.bounded(1, 30)));
                break;
            }
        }
        WriteText(path, text);
        Recordset rs;
        try {
            rs.Open(path);
            ++opened;
            EXPECT_GE(rs.RecordCount(), 0);
        } catch (const AdoError& e) {
            EXPECT_EQ(e.Number(), adErrReadFile);
        }
    }
    EXPECT_GT(opened, 0);
}
