#include "store/Base.h"

#include "base/Durable.h"
#include "store/Reference.h"
#include "ui/Application.h"
#include "ui/Fin.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QRegularExpression>
#include <SQLiteCpp/Transaction.h>
#include <memory>
#include <sqlite3.h>
#include <stdexcept>
#include <unordered_map>

namespace {

std::unique_ptr<SQLite::Database> g_base;
QString g_chemin;
std::unordered_map<std::string, std::unique_ptr<SQLite::Statement>> g_requetes;
QHash<QString, int> g_largeurs; // "table.colonne" en minuscules -> largeur

QString LireRessource(const QString& nom) {
    QFile f(nom);
    if (!f.open(QIODevice::ReadOnly))
        throw std::runtime_error("Ressource introuvable : " + nom.toStdString());
    return QString::fromUtf8(f.readAll());
}

void Reglages(SQLite::Database& db) {
    db.exec("PRAGMA journal_mode=WAL");
    db.exec("PRAGMA synchronous=FULL");
    db.exec("PRAGMA foreign_keys=OFF");
}

void LireLargeurs(SQLite::Database& db) {
    g_largeurs.clear();
    static const QRegularExpression texte(QStringLiteral("^TEXT\\((\\d+)\\)"),
                                          QRegularExpression::CaseInsensitiveOption);
    SQLite::Statement tables(db, "SELECT name FROM sqlite_master WHERE type='table'");
    while (tables.executeStep()) {
        const std::string nom = tables.getColumn(0).getString();
        SQLite::Statement cols(db, "SELECT name, type FROM pragma_table_info(?)");
        cols.bind(1, nom);
        while (cols.executeStep()) {
            const auto m = texte.match(QString::fromStdString(cols.getColumn(1).getString()));
            if (m.hasMatch())
                g_largeurs.insert((QString::fromStdString(nom) + '.' +
                                   QString::fromUtf8(cols.getColumn(0).getText()))
                                      .toLower(),
                                  m.captured(1).toInt());
        }
    }
}

// Crée une base neuve à côté, la remplit, puis la met en place d'un seul renommage :
// un arrêt pendant la création ne laisse jamais une base à moitié faite.
// Les tables propres au programme ajoutées à une base d'une version précédente : la fin du
// schéma, après la ligne « -- Ajouts », ne contient que des « IF NOT EXISTS ».
void MettreANiveau(SQLite::Database& db) {
    const QString schema = LireRessource(QStringLiteral(":/data/schema.sql"));
    const qsizetype debut = schema.indexOf(QStringLiteral("-- Ajouts\n"));
    if (debut >= 0) db.exec(schema.mid(debut).toStdString());
}

void CreerBase(const QString& chemin) {
    const QString provisoire = chemin + QStringLiteral(".creation");
    QFile::remove(provisoire);
    {
        SQLite::Database db(provisoire.toStdString(), SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE);
        SQLite::Transaction t(db);
        db.exec(LireRessource(QStringLiteral(":/data/schema.sql")).toStdString());
        t.commit();
        LireLargeurs(db);
        ChargerTablesReference(db);
        db.exec("PRAGMA journal_mode=DELETE");
    }
    if (!QFile::rename(provisoire, chemin))
        throw std::runtime_error("Impossible de créer la base " + chemin.toStdString());
}

} // namespace

SQLite::Database& Base() {
    if (!g_base) throw std::runtime_error("La base maroval.mdb n'est pas ouverte.");
    return *g_base;
}

bool BaseOuverte() {
    return g_base != nullptr;
}

QString CheminBase() {
    return g_chemin;
}

void OuvrirBase(const QString& dossierDonnees) {
    FermerBase();
    QDir().mkpath(dossierDonnees);
    const QString chemin = QDir(dossierDonnees).filePath(QStringLiteral("maroval.mdb"));
    if (!QFileInfo::exists(chemin)) CreerBase(chemin);
    g_base = std::make_unique<SQLite::Database>(chemin.toStdString(), SQLite::OPEN_READWRITE);
    g_chemin = chemin;
    Reglages(*g_base);
    MettreANiveau(*g_base);
    LireLargeurs(*g_base);
    ui::FixerFermetureBase([] { FermerBase(); });
    ui::FixerDescriptionErreur(DescriptionErreurBase);
}

QString DescriptionErreurBase(const std::exception& erreur) {
    const auto* e = dynamic_cast<const SQLite::Exception*>(&erreur);
    if (!e) return QString();
    QString quoi;
    switch (e->getErrorCode() & 0xff) {
    case SQLITE_FULL:
        quoi = QStringLiteral("le disque est plein");
        break;
    case SQLITE_IOERR:
        quoi = QStringLiteral("le disque a refusé une lecture ou une écriture");
        break;
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        quoi = QStringLiteral("le fichier est endommagé");
        break;
    case SQLITE_READONLY:
        quoi = QStringLiteral("le fichier ou le disque est protégé en écriture");
        break;
    case SQLITE_CANTOPEN:
        quoi = QStringLiteral("le fichier ne peut pas être ouvert");
        break;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        quoi = QStringLiteral("le fichier est occupé par un autre programme");
        break;
    default:
        return QString();
    }
    QString raison = QString::fromUtf8(e->what());
    const int systeme = g_base ? sqlite3_system_errno(g_base->getHandle()) : 0;
    if (systeme != 0) raison += QStringLiteral(" ; ") + RaisonSysteme(systeme);
    const QString fichier = g_chemin.isEmpty() ? QStringLiteral("maroval.mdb") : g_chemin;
    return QStringLiteral("Maroval n'a pas pu enregistrer ou relire votre comptabilité dans le "
                          "fichier :\n\n%1\n\nRaison : %2 (%3).\n\nL'opération en cours n'a "
                          "pas été enregistrée ; ce qui l'était avant elle reste intact. "
                          "Libérez de la place ou vérifiez le disque, puis relancez Maroval.")
        .arg(QDir::toNativeSeparators(fichier), quoi, raison);
}

void FermerBase() {
    g_requetes.clear();
    if (g_base) {
        // Le journal WAL est reversé dans le fichier : la base reste un fichier autonome.
        try {
            g_base->exec("PRAGMA wal_checkpoint(TRUNCATE)");
        } catch (const SQLite::Exception&) {
        }
        g_base.reset();
    }
    g_chemin.clear();
}

bool BaseEnUnSeulFichier(const QString& dossierDonnees) {
    const QFileInfo journal(QDir(dossierDonnees).filePath(QStringLiteral("maroval.mdb-wal")));
    return !journal.exists() || journal.size() == 0;
}

SQLite::Statement& Requete(const std::string& sql) {
    auto& r = g_requetes[sql];
    if (!r) {
        r = std::make_unique<SQLite::Statement>(Base(), sql);
    } else {
        r->reset();
        r->clearBindings();
    }
    return *r;
}

int LargeurColonne(const QString& table, const QString& colonne) {
    return g_largeurs.value((table + '.' + colonne).toLower(), 0);
}

QString TexteRange(const QString& texte, int largeur) {
    QString t = largeur > 0 ? texte.left(largeur) : texte;
    qsizetype n = t.size();
    while (n > 0 && t.at(n - 1) == QLatin1Char(' '))
        --n;
    t.truncate(n);
    return t;
}

QString TexteLu(const QString& texte, int largeur) {
    if (largeur <= 0) return texte;
    return texte.left(largeur).leftJustified(largeur, QLatin1Char(' '));
}
