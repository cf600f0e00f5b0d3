#include "posting/Securite.h"

#include "base/Valeur.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QFile>
#include <QFileInfo>
#include <QList>
#include <SQLiteCpp/Transaction.h>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

namespace {

const QString kSection = QStringLiteral("Securite");

// Le marqueur doit être sur le disque avant toute écriture qui suit : sinon on s'arrête.
void ControlerEcriture(bool ecrit) {
    if (ecrit) return;
    ui::Boite(QStringLiteral("Erreur lors de l'écriture dans MAROVAL.INI"));
    ui::TerminerProgramme(1);
}

// Le marqueur passe de 1 à 2 puis à 0 : un seul octet du fichier change. Il est réécrit
// sur place et poussé sur le disque ; l'écriture d'un octet ne peut pas être coupée en
// deux, et l'on évite ainsi le fichier neuf et le renommage, trois fois plus lents. Faux
// quand ce n'est pas le cas : l'écriture complète du fichier de profil prend le relais.
bool EcrireUnOctet(const QString& chemin, const QString& erreur) {
    QFile f(chemin);
    if (QFileInfo(chemin).isDir() || !f.open(QIODevice::ReadOnly)) return false;
    const QByteArray ancien = f.readAll();
    f.close();
    const std::optional<QByteArray> nouveau =
        FichierProfil::EcrireDansTexte(ancien, kSection, QStringLiteral("Erreur"), erreur);
    if (!nouveau || nouveau->size() != ancien.size()) return false;
    qsizetype position = -1;
    for (qsizetype i = 0; i < ancien.size(); ++i) {
        if (ancien[i] == nouveau->at(i)) continue;
        if (position >= 0) return false;
        position = i;
    }
    if (FichierProfil::AvantEcriture) FichierProfil::AvantEcriture();
    if (position < 0) return true;
    const int fd = ::open(QFile::encodeName(chemin).constData(), O_WRONLY | O_CLOEXEC);
    if (fd < 0) return false;
    const char octet = nouveau->at(position);
    const bool ecrit = ::pwrite(fd, &octet, 1, position) == 1 && ::fdatasync(fd) == 0;
    ::close(fd);
    return ecrit;
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
    const QString chemin = CheminIni();
    if (EcrireUnOctet(chemin, erreur)) return;
    FichierProfil ini(chemin);
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
