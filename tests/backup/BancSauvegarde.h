#pragma once
// Banc d'essai des sauvegardes : dossier de données neuf avec maroval.ini et la base
// ouverte, quelques sociétés et écritures, vidage complet des tables, archives fabriquées
// à la main (sans maroval.mdb, tronquée, base qui n'en est pas une).

#include "support/DossierEssai.h"
#include "support/Outils.h"
#include "support/SessionEssai.h"

#include "backup/ZipBiblio.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QStringList>
#include <SQLiteCpp/Statement.h>
#include <zip.h>

namespace banc {

inline QByteArray Lire(const QString& chemin) {
    QFile f(chemin);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

inline void Ecrire(const QString& chemin, const QByteArray& octets) {
    QFile f(chemin);
    if (f.open(QIODevice::WriteOnly | QIODevice::Truncate)) f.write(octets);
}

inline QByteArray Empreinte(const QString& chemin) {
    return QCryptographicHash::hash(Lire(chemin), QCryptographicHash::Sha256).toHex();
}

// Dossier de données neuf, maroval.ini livré, base ouverte.
class Banc {
public:
    Banc() {
        session().DossierDonnees = dossier.Chemin();
        session().LigneCommande.clear();
        essai::OuvrirDossier(dossier.Chemin());
    }
    ~Banc() { FermerBase(); }
    QString Fichier(const QString& nom) const { return dossier.Fichier(nom); }
    QString Chemin() const { return dossier.Chemin(); }
    // Un dossier à côté des données, pour y ranger les archives.
    QString Archives() const {
        const QString d = QDir(dossier.Chemin()).filePath(QStringLiteral("../archives"));
        QDir().mkpath(d);
        return QDir::cleanPath(d);
    }

private:
    support::DossierEssai dossier;
};

inline void AjouterSocieteEssai(const QString& nom, int annee, int nbEcritures) {
    const int num = essai::Societe(nom);
    const QString cle = CleExercice(num, annee);
    table::Constante c;
    c.CleCon = cle;
    c.DateDebut = QString::number(annee) + QStringLiteral("0101");
    c.DateFin = QString::number(annee) + QStringLiteral("1231");
    c.DateSaisie = c.DateDebut;
    c.SymboleMon = QStringLiteral("E");
    c.LastNumEcrit = nbEcritures;
    c.TDJG = Montant::depuisCentimes(1234 * nbEcritures);
    AjouterConstante(c);
    for (const char* n : {"401", "512", "607"}) {
        table::Compte cp;
        cp.CleCpt = cle;
        cp.NumCpt = QString::fromLatin1(n);
        cp.LibCpt = QStringLiteral("Compte « %1 » l'été").arg(n);
        cp.ErCpt = QStringLiteral("E1");
        cp.Solde = Montant::depuisCentimes(-4321);
        AjouterCompte(cp);
    }
    for (int i = 1; i <= nbEcritures; ++i) {
        table::Ecriture e;
        e.CleCpt = cle;
        e.NumEcr = i;
        e.DateEcr = QString::number(annee) + QStringLiteral("0315");
        e.NumCptEcr = i % 2 ? QStringLiteral("607") : QStringLiteral("401");
        e.ErEcr = QStringLiteral("E2");
        e.MntEcr = Montant::depuisCentimes(1234);
        e.LibEcr = QStringLiteral("Facture n°%1 \"fournisseur\"").arg(i);
        e.DCEcr = i % 2 ? QStringLiteral("D") : QStringLiteral("C");
        e.Journal = QStringLiteral("A");
        e.Fin = i % 2 == 0;
        AjouterEcriture(e);
    }
}

// Chaque table de la base, chaque ligne dans l'ordre de rangement, chaque valeur.
inline QStringList VidageComplet() {
    QStringList sortie;
    SQLite::Statement tables(Base(),
                             "SELECT name FROM sqlite_master WHERE type='table' ORDER BY name");
    while (tables.executeStep()) {
        const std::string nom = tables.getColumn(0).getString();
        sortie << QStringLiteral("== ") + QString::fromStdString(nom);
        SQLite::Statement lignes(Base(), "SELECT * FROM \"" + nom + "\" ORDER BY rowid");
        while (lignes.executeStep()) {
            QStringList valeurs;
            for (int i = 0; i < lignes.getColumnCount(); ++i) {
                const SQLite::Column c = lignes.getColumn(i);
                valeurs << (c.isNull() ? QStringLiteral("<nul>")
                                       : QString::number(c.getType()) + ':' +
                                             QString::fromUtf8(c.getText()));
            }
            sortie << valeurs.join(QLatin1Char('|'));
        }
    }
    return sortie;
}

// Archive des deux fichiers du banc sous ce nom, base fermée le temps de la lire.
inline QString ArchiveDeLaBase(const Banc& banc, const QString& nom) {
    const QString chemin = banc.Archives() + '/' + nom;
    FermerBase();
    Zipper(banc.Chemin(), QStringLiteral("maroval.mdb"), chemin);
    Zipper(banc.Chemin(), QStringLiteral("maroval.ini"), chemin);
    OuvrirBase(banc.Chemin());
    return chemin;
}

inline int NombreEcritures() {
    return essai::Compter("SELECT count(*) FROM Ecriture");
}

// Archive ZIP faite à la main : chaque entrée (nom, contenu), niveau 9.
inline bool FabriquerZip(const QString& chemin, const QList<QPair<QString, QByteArray>>& entrees) {
    QFile::remove(chemin);
    int code = 0;
    zip_t* za = zip_open(QFile::encodeName(chemin).constData(), ZIP_CREATE | ZIP_TRUNCATE, &code);
    if (!za) return false;
    QList<QByteArray> gardes; // libzip lit les tampons à la fermeture
    for (const auto& [nom, contenu] : entrees) {
        gardes << contenu;
        zip_source_t* s = zip_source_buffer(za, gardes.last().constData(),
                                            static_cast<zip_uint64_t>(gardes.last().size()), 0);
        if (!s || zip_file_add(za, nom.toUtf8().constData(), s, ZIP_FL_OVERWRITE) < 0) {
            zip_discard(za);
            return false;
        }
    }
    return zip_close(za) == 0;
}

} // namespace banc
