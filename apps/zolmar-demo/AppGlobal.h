#pragma once
// The demo's application object, as the record form reaches it by name through the form's
// oAppGlobal property: who works (user and station), the main database, and the refresh of
// the change log the form lists after the record form writes a row.

#include "form/QtFichaForm.h"

#include <QObject>

namespace zlx::demo {

class AppGlobal : public QObject {
    Q_OBJECT
    Q_PROPERTY(int ID_User MEMBER idUser)
    Q_PROPERTY(int ID_Station MEMBER idStation)
    Q_PROPERTY(QString MainDB MEMBER mainDB)

public:
    AppGlobal(int nIdUser, int nIdStation, QString cMainDB, QObject* parent = nullptr)
        : QObject(parent), idUser(nIdUser), idStation(nIdStation), mainDB(std::move(cMainDB)) {}

    Q_INVOKABLE void RefrescarDatosLogFichas(QObject* form, zlx::cFichaDBPtr cursor);

    int idUser;
    int idStation;
    QString mainDB;
};

} // namespace zlx::demo
