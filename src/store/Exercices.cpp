#include "store/Exercices.h"

#include "store/Base.h"
#include "store/Routines.h"

QList<SocieteListe> LireSocietes() {
    QList<SocieteListe> societes;
    auto& q = Requete("SELECT NumSoc, Nom FROM Societe");
    while (q.executeStep())
        societes.append(
            {q.getColumn(0).getInt(), QString::fromUtf8(q.getColumn(1).getText()).trimmed()});
    q.reset();
    return societes;
}

int NombreSocietes() {
    return CompterLignes("Societe");
}

void RetirerSociete(int numSoc) {
    auto& q = Requete("DELETE FROM Societe WHERE NumSoc=?");
    q.bind(1, numSoc);
    q.exec();
}

std::int64_t CompteurSocietes() {
    SQLite::Statement q(Base(), "SELECT seq FROM sqlite_sequence WHERE name = 'Societe'");
    return q.executeStep() ? q.getColumn(0).getInt64() : 0;
}

void RemettreCompteurSocietes(std::int64_t valeur) {
    SQLite::Statement q(Base(), "UPDATE sqlite_sequence SET seq = ? WHERE name = 'Societe'");
    q.bind(1, valeur);
    q.exec();
}

QList<ExerciceListe> LireExercices(int numSoc) {
    const QString n = QStringLiteral("%1").arg(numSoc, 2, 10, QLatin1Char('0'));
    auto& q = Requete("SELECT CleCon, ExerciceClos FROM Constante WHERE CleCon > ? AND "
                      "CleCon < ? ORDER BY CleCon DESC");
    q.bind(1, (n + QStringLiteral("0000")).toStdString());
    q.bind(2, (n + QStringLiteral("9999")).toStdString());
    QList<ExerciceListe> exercices;
    while (q.executeStep())
        exercices.append({QString::fromUtf8(q.getColumn(0).getText()).trimmed().right(4).toInt(),
                          q.getColumn(1).getInt() != 0});
    q.reset();
    return exercices;
}

bool LireEtatExercice(int numSoc, int exercice, double& lastNumEcrit, bool& exerciceClos) {
    table::Constante c;
    lastNumEcrit = 0;
    exerciceClos = false;
    if (!LireConstante(CleExercice(numSoc, exercice), c)) return false;
    lastNumEcrit = c.LastNumEcrit;
    exerciceClos = c.ExerciceClos;
    return true;
}

void SupprimerExercice(int numSoc, int exercice) {
    // Le plan de l'exercice suivant pourra être refait depuis l'exercice précédent.
    table::Constante precedent;
    const QString clePrecedent = CleExercice(numSoc, exercice - 1);
    if (LireConstante(clePrecedent, precedent)) {
        precedent.NouveauPC = false;
        MajConstante(clePrecedent, precedent);
    }
    const std::string cle = CleExercice(numSoc, exercice).toStdString();
    for (const char* sql :
         {"DELETE FROM Budget WHERE CleCpt=?", "DELETE FROM Compte WHERE CleCpt=?",
          "DELETE FROM Constante WHERE CleCon=?", "DELETE FROM Ecriture WHERE CleCpt=?",
          "DELETE FROM Section WHERE CleCpt=?"}) {
        SQLite::Statement q(Base(), sql);
        q.bind(1, cle);
        q.exec();
    }
    SQLite::Statement sauve(Base(), "DELETE FROM Sauve WHERE Societe=? AND Exercice=?");
    sauve.bind(1, numSoc);
    sauve.bind(2, exercice);
    sauve.exec();
    SQLite::Statement ventilation(Base(), "DELETE FROM Ventilation WHERE CleCpt=?");
    ventilation.bind(1, cle);
    ventilation.exec();
}

QString CalculDateFin(int jour, int mois, int annee) {
    static const int longueurs[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int fin = (jour == 1 && mois == 1) ? annee : annee + 1;
    const int moisFin = mois == 1 ? 12 : mois - 1;
    int dernier = moisFin >= 1 && moisFin <= 12 ? longueurs[moisFin - 1] : 31;
    if (moisFin == 2 && fin % 4 == 0) dernier = 29;
    return CalculDateDebut(dernier, moisFin, fin);
}

QString CalculDateDebut(int jour, int mois, int annee) {
    return QStringLiteral("%1%2%3")
        .arg(annee, 4, 10, QLatin1Char('0'))
        .arg(mois, 2, 10, QLatin1Char('0'))
        .arg(jour, 2, 10, QLatin1Char('0'));
}
