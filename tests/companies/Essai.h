#pragma once
// Données d'essai des écrans des sociétés : une base neuve dans le dossier d'essai, des
// comptes posés directement, le relevé des écrans ouverts et quelques gestes.

#include "support/DossierEssai.h"
#include "support/Outils.h"
#include "support/PiloteModal.h"
#include "support/SessionEssai.h"

#include "companies/OuvertureEcrans.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QLineEdit>
#include <QListWidget>
#include <QStringList>
#include <QtTest>

namespace essai {

// Session remise à neuf, maroval.ini livré et base neuve ouverte.
inline void OuvrirEssai(const support::DossierEssai& dossier) {
    FermerBase();
    NouvelleSession(dossier.Chemin());
    OuvrirDossier(dossier.Chemin());
    ecran::FixerReleve({});
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

// Texte des lignes d'une liste.
inline QStringList Lignes(QWidget* racine, const QString& liste) {
    QStringList textes;
    auto* l = racine->findChild<QListWidget*>(liste);
    for (int i = 0; l && i < l->count(); ++i)
        textes << l->item(i)->text();
    return textes;
}

// Les écrans demandés par les ouvreurs d'essai, dans l'ordre.
inline QStringList& EcransOuverts() {
    static QStringList ouverts;
    return ouverts;
}

// Remplace l'ouverture de ces écrans des autres modules par un simple relevé ; les autres
// se montrent.
inline void ReleverOuvertures(const QStringList& noms) {
    EcransOuverts().clear();
    ecran::FixerReleve([noms](const QString& nom) {
        if (!noms.contains(nom)) return false;
        EcransOuverts() << nom;
        return true;
    });
}

// Aucun écran des autres modules ne se montre : chaque ouverture est relevée.
inline void ReleverToutesOuvertures() {
    EcransOuverts().clear();
    ecran::FixerReleve([](const QString& nom) {
        EcransOuverts() << nom;
        return true;
    });
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
