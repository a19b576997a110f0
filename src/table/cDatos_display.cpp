// cDatos: showing the rows as a text listing (debug output or a file) or in the grid window,
// and picking a row from the grid (Buscar).

#include "connection/TypeMapping.h"
#include "platform/dbfformat/Cp1252.h"
#include "platform/engines/AdoConstants.h"
#include "platform/companion/SearchGrid.h"
#include "table/DatosFailure.h"
#include "table/cDatos.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

namespace zlx {

namespace {

// A listing column is never wider than this, whatever size a long text column declares.
constexpr std::int32_t kMaxListingWidth = 255;
// Default grid widths (in characters) stay within this.
constexpr std::int32_t kMaxGridWidth = 60;
// A file that cannot be opened fails as VB's "Path/File access error".
constexpr std::int32_t kFileAccessError = 75;

struct DisplayRequest {
    std::int32_t destination = zlxDatosShow_Grid;
    std::int32_t flags = 0;
    QString condition;
    std::int32_t maxRows = 0;
    QString output;
    bool searchMode = false;
    QString title;
    Variant headers, widths, masks;
    std::int32_t returnColumn = 1;
    std::int32_t searchColumn = 1;
    double zoom = 1.0;
    bool descending = false;
};

// The kinds that a listing right-aligns.
bool ListedAsNumber(const Variant& value) {
    switch (value.VarType()) {
    case vbInteger:
    case vbLong:
    case vbSingle:
    case vbDouble:
    case vbCurrency:
    case vbDecimal:
        return true;
    default:
        return false;
    }
}

// A value as the listing writes it: VB's CStr, with Null and Empty as nothing.
QString ListedText(const Variant& value) {
    if (value.IsNull() || value.IsEmpty()) return {};
    if (value.IsObject() || value.IsArray()) return value.TypeName();
    return value.ToString();
}

// The rows from the current one onwards, at most `maxRows`, as text; `tally` counts them.
QString BuildListing(ado::Recordset& rs, std::int32_t flags, std::int32_t maxRows,
                     std::int32_t& tally) {
    static const QString kEnd = QStringLiteral("\r\n");
    const ado::Fields& fields = rs.GetFields();
    const int count = fields.Count();
    const bool ficha = flags & zlxDatosShow_Flag_Ficha;
    const bool noHeader = flags & zlxDatosShow_Flag_NO_Cabecera;
    QString text;
    if (ficha) {
        for (; !rs.IsEOF() && tally < maxRows; rs.MoveNext(), ++tally) {
            for (int c = 0; c < count; ++c) {
                const ado::Field& field = fields.Item(c);
                if (!noHeader) text += field.Name() + QStringLiteral(": ");
                text += ListedText(field.Value()) + kEnd;
            }
            text += kEnd;
        }
        return text;
    }
    // Columns are as wide as their name or their defined size; numbers (by the first row's
    // values) are right-aligned.
    std::vector<qsizetype> widths(static_cast<std::size_t>(count));
    std::vector<bool> numbers(static_cast<std::size_t>(count), false);
    for (int c = 0; c < count; ++c) {
        const ado::Field& field = fields.Item(c);
        widths[c] = std::max<qsizetype>(field.Name().size(),
                                        std::min(field.DefinedSize(), kMaxListingWidth));
        numbers[c] = !rs.IsEOF() && maxRows > 0 && ListedAsNumber(field.Value());
    }
    auto line = [&](auto cellText) {
        for (int c = 0; c < count; ++c) {
            const QString cell = cellText(c);
            text += numbers[c] ? cell.rightJustified(widths[c]) : cell.leftJustified(widths[c]);
            text += u' ';
        }
        text += kEnd;
    };
    if (!noHeader) line([&](int c) { return fields.Item(c).Name(); });
    for (; !rs.IsEOF() && tally < maxRows; rs.MoveNext(), ++tally)
        line([&](int c) { return ListedText(fields.Item(c).Value()); });
    return text;
}

// The folder of the running program (without an application object, from /proc).
QString ApplicationFolder() {
    if (QCoreApplication::instance()) return QCoreApplication::applicationDirPath();
    return QFileInfo(QStringLiteral("/proc/self/exe")).canonicalFilePath().section(u'/', 0, -2);
}

// The listing's file: the output as given when it names a folder, else a file of that name
// (or "cDatos.Show().txt") in the program's folder. "\" separates folders as "/" does.
QString ListingPath(const QString& output) {
    if (output.contains(u':') || output.contains(u'/') || output.contains(u'\\'))
        return QString(output).replace(u'\\', u'/');
    return ApplicationFolder() + u'/' +
           (output.isEmpty() ? QStringLiteral("cDatos.Show().txt") : output);
}

// Opens the file in the desktop's text editor without waiting for it; a missing editor is
// no failure of the listing.
void OpenInEditor(const QString& path) {
    const QString opener = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    if (!opener.isEmpty()) {
        QProcess::startDetached(opener, {path});
        return;
    }
    for (const char* variable : {"VISUAL", "EDITOR"}) {
        const QString editor = qEnvironmentVariable(variable);
        if (!editor.isEmpty() && QProcess::startDetached(editor, {path})) return;
    }
}

void WriteListingFile(const QString& text, const DisplayRequest& request) {
    const QString path = ListingPath(request.output);
    QFile file(path);
    const QIODevice::OpenMode mode = (request.flags & zlxDatosShow_Flag_CreateNewFile)
                                         ? QIODevice::WriteOnly | QIODevice::Truncate
                                         : QIODevice::WriteOnly | QIODevice::Append;
    const QByteArray bytes = Cp1252::Encode(text);
    if (!file.open(mode) || file.write(bytes) != bytes.size())
        throw VariantError(kFileAccessError, QStringLiteral("Path/File access error"));
    file.close();
    if (request.flags & zlxDatosShow_Flag_RunNotePad) OpenInEditor(path);
}

// The items of a list argument: an array's elements in order, a cMatriz's single row (else
// its first column), a single value as one item, nothing for Empty or a missing argument.
std::vector<Variant> ListItems(const Variant& list) {
    if (list.IsEmpty() || list.IsMissing() || list.IsNull()) return {};
    if (const VariantArrayPtr array = list.ToArray()) return array->Data();
    if (const auto matrix = list.IsObject() ? list.As<cMatriz>() : nullptr) {
        std::vector<Variant> items;
        if (matrix->Rows() == 1)
            for (std::int32_t col = matrix->FirstCol(); col <= matrix->LastCol(); ++col)
                items.push_back(matrix->GetValue(col, matrix->FirstRow()));
        else
            for (std::int32_t row = matrix->FirstRow(); row <= matrix->LastRow(); ++row)
                items.push_back(matrix->GetValue(matrix->FirstCol(), row));
        return items;
    }
    return {list};
}

// The grid request for the rows from the current one onwards; `tally` counts them.
SearchGridRequest BuildGridRequest(ado::Recordset& rs, const DisplayRequest& request,
                                   std::int32_t& tally) {
    const ado::Fields& fields = rs.GetFields();
    const std::int32_t count = fields.Count();
    const std::int32_t rows = std::clamp<std::int32_t>(
        static_cast<std::int32_t>(rs.RecordCount()), 0, std::max<std::int32_t>(0, request.maxRows));
    SearchGridRequest grid;
    grid.data = std::make_shared<cMatriz>();
    grid.data->Dimension(1, count, 1, rows);
    for (; !rs.IsEOF() && tally < rows; rs.MoveNext()) {
        ++tally;
        for (std::int32_t c = 0; c < count; ++c)
            grid.data->SetValue(c + 1, tally, fields.Item(c).Value());
    }

    const QString rowCount = QString::number(rows);
    grid.title = request.searchMode && !request.title.isEmpty()
                     ? request.title
                     : QStringLiteral("Ver datos (") + rowCount + QStringLiteral(" filas)");
    grid.title.replace(QStringLiteral("<n>"), rowCount);

    const std::vector<Variant> headers = ListItems(request.headers);
    const std::vector<Variant> widths = ListItems(request.widths);
    const std::vector<Variant> masks = ListItems(request.masks);
    for (std::int32_t c = 0; c < count; ++c) {
        const ado::Field& field = fields.Item(c);
        const auto i = static_cast<std::size_t>(c);
        grid.headers << (i < headers.size() ? headers[i].ToString() : field.Name());
        const auto defaultWidth = std::clamp<std::int32_t>(
            std::max<std::int32_t>(static_cast<std::int32_t>(field.Name().size()),
                                   field.DefinedSize()),
            1, kMaxGridWidth);
        grid.widths.push_back(i < widths.size() ? widths[i].ToLong() : defaultWidth);
        QString mask = i < masks.size() ? masks[i].ToString() : QString();
        if (mask.isEmpty() && field.Type() == ado::adCurrency) mask = QStringLiteral("#,##0.0000");
        grid.masks << mask;
        grid.types.push_back(TypeMapping::AdoToDisplay(field.Type()).value_or(zlxDisplayText));
    }
    grid.zoom = request.zoom;
    grid.searchMode = request.searchMode;
    grid.searchColumn = request.searchColumn;
    grid.descending = request.descending;
    return grid;
}

// The routine behind Show and Buscar: the rows under the condition, listed or shown in the
// grid; the table's filter and current row are as before afterwards. Answers the return
// column of the picked row (Empty when nothing was picked or not in search mode).
Variant ShowTable(cDatos& table, const DisplayRequest& request) {
    const ado::RecordsetPtr rs = table.Get_RS();
    if (!rs || rs->State() != ado::adStateOpen || table.FieldCount() == 0 || table.RecCount() == 0)
        return {};
    const std::int32_t savedRow = table.CurrentRow();
    const bool conditioned = !request.condition.isEmpty();
    Variant savedFilter;
    Variant result;
    bool filterChanged = false;
    try {
        if (conditioned) {
            savedFilter = table.Filter();
            table.Filter(Variant(request.condition));
            filterChanged = true;
        }
        std::int32_t tally = 0;
        table.Tally(0);
        if (rs->RecordCount() > 0) rs->MoveFirst();
        switch (request.destination) {
        case zlxDatosShow_Debug:
        case zlxDatosShow_File: {
            const QString text = BuildListing(*rs, request.flags, request.maxRows, tally);
            table.Tally(tally);
            if (request.destination == zlxDatosShow_File) {
                WriteListingFile(text, request);
            } else {
                QString lines = QString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
                if (lines.endsWith(u'\n')) lines.chop(1);
                qDebug().noquote() << lines;
            }
            break;
        }
        case zlxDatosShow_Grid: {
            const SearchGridRequest grid = BuildGridRequest(*rs, request, tally);
            table.Tally(tally);
            const std::optional<std::int32_t> picked = CurrentSearchGridPresenter().Present(grid);
            if (request.searchMode && picked)
                result = grid.data->GetValue(request.returnColumn, *picked);
            break;
        }
        default:
            break;
        }
    } catch (...) {
        const std::int32_t number = CurrentFailure().number;
        cMsgBox box;
        box.SetIcon(MsgIconError);
        box.ShowMessage(QStringLiteral("Se ha producido un error # ") + QString::number(number) +
                            QStringLiteral(" al intentar mostrar los datos"),
                        MsgButtonsOkError, QStringLiteral("Error mostrando datos"));
        result = Variant();
    }
    // Put the table back as it was, even after a failure.
    try {
        if (filterChanged) table.Filter(savedFilter);
        if (savedRow >= 1 && savedRow <= table.RecCount()) table.CurrentRow(savedRow);
    } catch (...) {
    }
    return result;
}

} // namespace

void cDatos::Show(std::int32_t nDestino, const QString& cFor, std::int32_t nMaxRegistros,
                  const QString& cOutput) {
    DisplayRequest request;
    request.destination = nDestino & 0x0F;
    request.flags = nDestino & ~0x0F;
    request.condition = cFor;
    request.maxRows = nMaxRegistros;
    request.output = cOutput;
    ShowTable(*this, request);
}

Variant cDatos::Buscar(const QString& cTitle, const Variant& aHeaders, const Variant& aWidths,
                       std::int32_t nRetCol, std::int32_t nSearchCol, std::int32_t nMaxRegistros,
                       const Variant& aColumnMasks, double nCustomZoomFactor,
                       bool lOrderDescending) {
    DisplayRequest request;
    request.destination = zlxDatosShow_Grid;
    request.maxRows = nMaxRegistros;
    request.searchMode = true;
    request.title = cTitle;
    request.headers = aHeaders;
    request.widths = aWidths;
    request.masks = aColumnMasks;
    request.returnColumn = nRetCol;
    request.searchColumn = nSearchCol;
    request.zoom = nCustomZoomFactor;
    request.descending = lOrderDescending;
    return ShowTable(*this, request);
}

} // namespace zlx
