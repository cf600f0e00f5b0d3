#pragma once
// Données d'essai des écrans des sociétés : une base neuve dans le dossier d'essai, des
// sociétés, des exercices et des comptes posés directement, et quelques gestes.

#include "support/DossierEssai.h"
#include "support/PiloteModal.h"

#include "companies/OuvertureEcrans.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QStringList>
#include <QtTest>

namespace essai {

// Session remise à neuf, maroval.ini livré et base neuve ouverte.
inline void OuvrirEssai(const support::DossierEssai& dossier) {
    FermerBase();
    Session& s = session();
    s = Session();
    s.DossierDonnees = dossier.Chemin();
    s.DossierProgramme = dossier.Chemin();
    s.NomsMois = {"Janvier", "Février", "Mars",      "Avril",   "Mai",      "Juin",
                  "Juillet", "Août",    "Septembre", "Octobre", "Novembre", "Décembre"};
    const QString ini = dossier.Fichier("maroval.ini");
    if (!QFile::exists(ini)) {
        QFile::copy(QStringLiteral(":/data/maroval.ini"), ini);
        QFile::setPermissions(ini, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    OuvrirBase(dossier.Chemin());
    ecran::OublierOuvreurs();
}

inline int Societe(const QString& nom) {
    table::Societe r;
    r.Nom = nom;
    r.Ville = QStringLiteral("Lyon");
    return AjouterSociete(r);
}

struct Exercice {
    QString debut = QStringLiteral("20240101");
    QString fin = QStringLiteral("20241231");
    QString saisie;
    double lastNumEcrit = 0;
    bool clos = false;
    QString symbole = QStringLiteral("€");
};

inline void AjouterExercice(int numSoc, int annee, Exercice e = {}) {
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

// Exercice calendaire de l'année, date de saisie donnée (AAAAMMJJ) ou le 1er janvier.
inline void AjouterAnnee(int numSoc, int annee, const QString& saisie = QString()) {
    Exercice e;
    e.debut = QString::number(annee) + QStringLiteral("0101");
    e.fin = QString::number(annee) + QStringLiteral("1231");
    e.saisie = saisie;
    AjouterExercice(numSoc, annee, e);
}

inline void AjouterComptes(const QString& cle, int nombre) {
    for (int i = 0; i < nombre; ++i) {
        table::Compte c;
        c.CleCpt = cle;
        c.NumCpt = QString::number(601000 + i);
        c.LibCpt = QStringLiteral("Compte %1").arg(i);
        c.ErCpt = QStringLiteral("E2");
        AjouterCompte(c);
    }
}

inline int Compter(const std::string& sql, const QString& valeur = QString()) {
    SQLite::Statement q(Base(), sql);
    if (!valeur.isNull()) q.bind(1, valeur.toStdString());
    return q.executeStep() ? q.getColumn(0).getInt() : -1;
}

inline table::Constante Constante(const QString& cle) {
    table::Constante c;
    LireConstante(cle, c);
    return c;
}

// Texte des lignes d'une liste.
inline QStringList Lignes(QWidget* racine, const QString& liste) {
    QStringList textes;
    auto* l = racine->findChild<QListWidget*>(liste);
    for (int i = 0; l && i < l->count(); ++i)
        textes << l->item(i)->text();
    return textes;
}

inline QStringList TextesBoites() {
    QStringList textes;
    for (const ui::EntreeJournal& e : ui::JournalBoites())
        textes << e.texte;
    return textes;
}

// Les écrans demandés par les ouvreurs d'essai, dans l'ordre.
inline QStringList& EcransOuverts() {
    static QStringList ouverts;
    return ouverts;
}

// Remplace l'ouverture des écrans des autres modules par un simple relevé.
inline void ReleverOuvertures(const QStringList& noms) {
    EcransOuverts().clear();
    for (const QString& nom : noms)
        ecran::FixerOuvreur(nom, [nom](QWidget*) { EcransOuverts() << nom; });
}

inline void ReleverToutesOuvertures() {
    ReleverOuvertures(ecran::NomsEcransDemandes());
}

} // namespace essai

#include "base/Reglages.h"
#include "companies/General.h"
#include "companies/Societe.h"

namespace essai {

// Ecran principal caché (pour ses libellés) et écran de choix montré, son chargement fait.
inline std::unique_ptr<ecran::Societe> MontrerChoix() {
    auto choix = std::make_unique<ecran::Societe>(ecran::General::Instance());
    choix->show();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    return choix;
}

inline QString TexteChamp(QWidget* racine, const QString& nom) {
    auto* champ = racine->findChild<QLineEdit*>(nom);
    return champ ? champ->displayText() : QStringLiteral("<absent>");
}

} // namespace essai
