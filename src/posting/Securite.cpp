#include "posting/Securite.h"

#include "session/FichierProfil.h"
#include "session/Session.h"
#include "session/Valeur.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QList>
#include <SQLiteCpp/Transaction.h>
#include <string>
#include <utility>
#include <vector>

namespace {

const QString kSection = QStringLiteral("Securite");

// Le marqueur doit être sur le disque avant toute écriture qui suit : sinon on s'arrête.
void ControlerEcriture(bool ecrit) {
    if (ecrit) return;
    ui::Boite(QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"));
    ui::TerminerProgramme(1);
}

// Lignes d'images d'une table, dans l'ordre où elles ont été faites.
std::vector<std::pair<std::int64_t, std::string>> Images(const char* table, const char* numero) {
    std::vector<std::pair<std::int64_t, std::string>> images;
    SQLite::Statement q(Base(), std::string("SELECT rowid, \"") + numero + "\" FROM \"" + table +
                                    "\" WHERE CleCpt='000000' ORDER BY rowid");
    while (q.executeStep())
        images.emplace_back(q.getColumn(0).getInt64(), q.getColumn(1).getString());
    return images;
}

// Chaque image remplace la ligne de l'exercice ; deux images d'un même compte sont égales,
// la seconde remplace la première.
void RestituerTable(const char* table, const char* numero, const std::string& cle) {
    SQLite::Statement supprimer(Base(), std::string("DELETE FROM \"") + table +
                                            "\" WHERE CleCpt=? AND \"" + numero + "\"=?");
    SQLite::Statement rendre(Base(),
                             std::string("UPDATE \"") + table + "\" SET CleCpt=? WHERE rowid=?");
    for (const auto& [rowid, num] : Images(table, numero)) {
        supprimer.bind(1, cle);
        supprimer.bind(2, num);
        supprimer.exec();
        supprimer.reset();
        rendre.bind(1, cle);
        rendre.bind(2, rowid);
        rendre.exec();
        rendre.reset();
    }
}

} // namespace

void PurgerCleTemporaire() {
    // Une seule validation pour les trois tables : moins d'attentes du disque.
    SQLite::Transaction t(Base());
    Base().exec("DELETE FROM Compte WHERE CleCpt='000000'");
    Base().exec("DELETE FROM Budget WHERE CleCpt='000000'");
    Base().exec("DELETE FROM Constante WHERE CleCon='000000'");
    t.commit();
}

void EcrireMarqueurDebut(const QString& cle, const QString& dernum) {
    FichierProfil ini(CheminIni());
    ControlerEcriture(ini.EcrireCles(kSection, {{QStringLiteral("Erreur"), QStringLiteral("1")},
                                                {QStringLiteral("CleCpt"), cle},
                                                {QStringLiteral("Dernum"), dernum}}));
}

void EcrireMarqueur(const QString& erreur) {
    FichierProfil ini(CheminIni());
    ControlerEcriture(ini.Ecrire(kSection, QStringLiteral("Erreur"), erreur));
}

MarqueurLu LireMarqueur() {
    FichierProfil ini(CheminIni());
    MarqueurLu m;
    m.derNum = ValeurNumerique(ini.Lire(kSection, QStringLiteral("DerNum"), QStringLiteral("0")));
    m.cle = ini.Lire(kSection, QStringLiteral("CleCpt")).trimmed().left(6);
    return m;
}

void RestituerImages(const QString& cle, double derNum) {
    const std::string c = cle.toStdString();
    SQLite::Transaction t(Base());
    RestituerTable("Compte", "NumCpt", c);
    RestituerTable("Budget", "NumBud", c);
    // Sans image (reprise déjà faite), la ligne de l'exercice reste telle quelle.
    table::Constante image;
    if (LireConstante(CleImages, image)) {
        SQLite::Statement supprimer(Base(), "DELETE FROM Constante WHERE CleCon=?");
        supprimer.bind(1, c);
        supprimer.exec();
        image.CleCon = cle;
        AjouterConstante(image);
        Base().exec("DELETE FROM Constante WHERE CleCon='000000'");
    }
    SQLite::Statement lignes(Base(), "DELETE FROM Ecriture WHERE CleCpt=? AND NumEcr>=?");
    lignes.bind(1, c);
    lignes.bind(2, derNum);
    lignes.exec();
    t.commit();
}
