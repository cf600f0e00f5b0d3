#include "support/SessionEssai.h"

#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"

#include <QDir>
#include <QFile>

namespace essai {

void NouvelleSession(const QString& dossier) {
    Session& s = session();
    s = Session();
    s.DossierDonnees = dossier;
    s.DossierProgramme = dossier;
}

void CopierIniLivre(const QString& dossier) {
    const QString ini = QDir(dossier).filePath(QStringLiteral("maroval.ini"));
    if (QFile::exists(ini)) return;
    QFile::copy(QStringLiteral(":/data/maroval.ini"), ini);
    // La ressource est en lecture seule : la copie en garderait le droit.
    QFile::setPermissions(ini, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void OuvrirDossier(const QString& dossier) {
    CopierIniLivre(dossier);
    OuvrirBase(dossier);
}

void SessionExercice(const QString& nomSociete, const QString& dateSaisie) {
    Session& s = session();
    s.NumSocCourante = 1;
    s.ExerciceCourant = 2024;
    s.NomSocCourante = nomSociete;
    s.DateSaisieCourante = dateSaisie;
    s.MonnaieExercice = QStringLiteral("E");
    MajFormatMontant(2);
}

void CreerExerciceEssai(const QString& debut, const QString& saisie) {
    // La société d'essai n'a que son nom.
    Societe(session().NomSocCourante, QString());
    table::Constante k;
    k.CleCon = Cle;
    k.DateDebut = debut;
    k.DateFin = QStringLiteral("20241231");
    k.DateSaisie = saisie;
    k.SymboleMon = QStringLiteral("E");
    AjouterConstante(k);
}

int Societe(const QString& nom, const QString& ville) {
    table::Societe r;
    r.Nom = nom;
    r.Ville = ville;
    return AjouterSociete(r);
}

void AjouterExercice(int numSoc, int annee, Exercice e) {
    table::Constante c;
    c.CleCon = CleExercice(numSoc, annee);
    c.DateDebut = e.debut;
    c.DateFin = e.fin;
    c.DateSaisie = e.saisie.isEmpty() ? e.debut : e.saisie;
    c.LastNumEcrit = e.lastNumEcrit;
    c.ExerciceClos = e.clos;
    c.SymboleMon = e.symbole;
    AjouterConstante(c);
}

void AjouterAnnee(int numSoc, int annee, const QString& saisie) {
    Exercice e;
    e.debut = QString::number(annee) + QStringLiteral("0101");
    e.fin = QString::number(annee) + QStringLiteral("1231");
    e.saisie = saisie;
    AjouterExercice(numSoc, annee, e);
}

table::Constante Constante(const QString& cle) {
    table::Constante k;
    LireConstante(cle, k);
    return k;
}

table::Compte LireCpt(const QString& numero) {
    table::Compte c;
    LireCompte(Cle, numero, c);
    return c;
}

} // namespace essai
