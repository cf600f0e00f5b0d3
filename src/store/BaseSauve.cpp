#include "store/BaseSauve.h"

#include "store/Base.h"

#include <QDir>
#include <QFile>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>

QString CheminBaseSauve(const QString& dossier) {
    return QDir(dossier).filePath(QStringLiteral("sauve.mdb"));
}

bool RefaireBaseSauve(const QString& dossier) {
    const QString modele = QDir(dossier).filePath(QStringLiteral("sauveb.mdb"));
    const QString sauve = CheminBaseSauve(dossier);
    try {
        if (!QFile::exists(modele)) {
            QFile schema(QStringLiteral(":/data/schema.sql"));
            if (!schema.open(QIODevice::ReadOnly)) return false;
            SQLite::Database db(QFile::encodeName(modele).toStdString(),
                                SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
            db.exec(schema.readAll().toStdString());
            db.exec("DROP TABLE Compte; DROP TABLE Ecriture;");
        }
    } catch (const SQLite::Exception&) {
        QFile::remove(modele);
        return false;
    }
    QFile::remove(sauve);
    if (!QFile::copy(modele, sauve)) return false;
    QFile::setPermissions(sauve, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    return true;
}

SauveAttachee::SauveAttachee(const QString& dossier) {
    SQLite::Statement attacher(Base(), "ATTACH DATABASE ? AS sauve");
    attacher.bind(1, QFile::encodeName(CheminBaseSauve(dossier)).toStdString());
    attacher.exec();
}

SauveAttachee::~SauveAttachee() {
    try {
        Base().exec("DETACH DATABASE sauve");
    } catch (const SQLite::Exception&) {
        // Une base détachée par une erreur précédente : rien à faire.
    }
}

void CopierVersSauve(const std::string& table, const std::string& condition,
                     const std::vector<std::string>& valeurs, const std::string& ordre) {
    SQLite::Statement existe(Base(), "SELECT count(*) FROM sauve.sqlite_master WHERE type = "
                                     "'table' AND name = ?");
    existe.bind(1, table);
    existe.executeStep();
    if (existe.getColumn(0).getInt() == 0) {
        // Créée comme dans la base : mêmes colonnes, mêmes comparaisons sans les blancs de fin.
        SQLite::Statement d(Base(), "SELECT sql FROM main.sqlite_master WHERE type = 'table' AND "
                                    "name = ?");
        d.bind(1, table);
        if (!d.executeStep()) throw SQLite::Exception("table absente : " + table);
        std::string creation = d.getColumn(0).getString();
        creation.replace(0, std::string("CREATE TABLE ").size(), "CREATE TABLE sauve.");
        Base().exec(creation);
    }
    std::string sql = "INSERT INTO sauve." + table + " SELECT * FROM main." + table;
    if (!condition.empty()) sql += " WHERE " + condition;
    if (!ordre.empty()) sql += " ORDER BY " + ordre;
    SQLite::Statement q(Base(), sql);
    for (std::size_t i = 0; i < valeurs.size(); ++i)
        q.bind(static_cast<int>(i) + 1, valeurs[i]);
    q.exec();
}
