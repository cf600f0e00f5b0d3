#include "backup/Restauration.h"

#include "backup/ZipBiblio.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QDir>
#include <QFile>
#include <QMap>
#include <QSet>
#include <QTemporaryDir>
#include <SQLiteCpp/Database.h>
#include <SQLiteCpp/Statement.h>
#include <cstdio>

namespace {

using Structure = QMap<QString, QSet<QString>>; // table -> colonnes, en minuscules

Structure LireStructure(SQLite::Database& db) {
    Structure s;
    SQLite::Statement tables(
        db, "SELECT name FROM sqlite_master WHERE type='table' AND name NOT LIKE 'sqlite\\_%' "
            "ESCAPE '\\'");
    while (tables.executeStep()) {
        const std::string nom = tables.getColumn(0).getString();
        QSet<QString>& colonnes = s[QString::fromStdString(nom).toLower()];
        SQLite::Statement cols(db, "SELECT name FROM pragma_table_info(?)");
        cols.bind(1, nom);
        while (cols.executeStep())
            colonnes.insert(QString::fromUtf8(cols.getColumn(0).getText()).toLower());
    }
    return s;
}

// La structure que le schéma livré donne à une base neuve.
const Structure& StructureAttendue() {
    static const Structure attendue = [] {
        QFile f(QStringLiteral(":/data/schema.sql"));
        if (!f.open(QIODevice::ReadOnly)) return Structure();
        SQLite::Database db(":memory:", SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        db.exec(f.readAll().toStdString());
        return LireStructure(db);
    }();
    return attendue;
}

} // namespace

bool EstArchiveLigneCommande(const QString& ligne) {
    const QString l = ligne.toUpper();
    return l.endsWith(QStringLiteral(".SAV")) || l.endsWith(QStringLiteral(".SAV\""));
}

QString TexteEchecRestauration() {
    return QStringLiteral("La restauration a échoué. La base de données est introuvable dans "
                          "votre sauvegarde\nou votre fichier est endommagé.");
}

QString TexteRestaurationTerminee() {
    return QStringLiteral("La restauration est terminée.\n"
                          "Maroval va être arreté pour la prise en compte de la restauration.\n"
                          "\n"
                          "Vous pouvez relancer Maroval immédiatement");
}

QString ControlerBaseRestauree(const QString& chemin) {
    try {
        SQLite::Database db(QFile::encodeName(chemin).toStdString(), SQLite::OPEN_READWRITE);
        SQLite::Statement integrite(db, "PRAGMA integrity_check");
        if (!integrite.executeStep() || integrite.getColumn(0).getString() != "ok")
            return QStringLiteral("base endommagée : ") +
                   QString::fromStdString(integrite.getColumn(0).getString());
        const Structure attendue = StructureAttendue();
        if (attendue.isEmpty()) return QStringLiteral("schéma livré illisible");
        const Structure lue = LireStructure(db);
        for (auto t = attendue.cbegin(); t != attendue.cend(); ++t) {
            if (!lue.contains(t.key())) return QStringLiteral("table absente : ") + t.key();
            if (lue.value(t.key()) != t.value())
                return QStringLiteral("colonnes différentes dans la table ") + t.key();
        }
        for (auto t = lue.cbegin(); t != lue.cend(); ++t)
            if (!attendue.contains(t.key())) return QStringLiteral("table inconnue : ") + t.key();
    } catch (const std::exception& e) {
        return QStringLiteral("base illisible : ") + QString::fromUtf8(e.what());
    }
    return QString();
}

bool RemplacerBaseDepuisArchive(const QString& fichier) {
    const QString dossier = session().DossierDonnees;
    // Même dossier que la base : le renommage final reste un seul geste atomique.
    QTemporaryDir provisoire(QDir(dossier).filePath(QStringLiteral("restauration-XXXXXX")));
    if (!provisoire.isValid()) return false;
    if (!UnZip(fichier, QStringLiteral("maroval.mdb"), provisoire.path())) return false;
    const QString candidat = provisoire.filePath(QStringLiteral("maroval.mdb"));
    if (!ControlerBaseRestauree(candidat).isEmpty()) return false;
    const QString cible = QDir(dossier).filePath(QStringLiteral("maroval.mdb"));
    // Un journal resté à côté de l'ancienne base serait rejoué sur la nouvelle.
    QFile::remove(cible + QStringLiteral("-wal"));
    QFile::remove(cible + QStringLiteral("-shm"));
    if (std::rename(QFile::encodeName(candidat).constData(),
                    QFile::encodeName(cible).constData()) != 0)
        return false;
    SynchroniserDossier(dossier);
    return true;
}

bool RestaurerArchive(const QString& fichier) {
    FermerBase();
    if (!RemplacerBaseDepuisArchive(fichier)) {
        OuvrirBase(session().DossierDonnees);
        ui::Boite(TexteEchecRestauration(), QStringLiteral("Maroval"), ui::Icone::Critique);
        return false;
    }
    // Un marqueur d'arrêt n'a pas de sens pour la base restaurée ; le maroval.ini en place
    // reste en vigueur, celui de l'archive n'est pas appliqué.
    FichierProfil ini(CheminIni());
    if (!ini.Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"))) {
        ui::Boite(QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        ui::TerminerProgramme(1);
    }
    ui::Boite(TexteRestaurationTerminee(), QStringLiteral("Maroval"), ui::Icone::Information);
    ui::TerminerProgramme(0);
}
