#pragma once
// Exercice d'essai des écrans du plan, de la saisie et de la consultation : société 1,
// exercice 2024, tables livrées (filtre, PlanType), maroval.ini livré ; écritures passées
// par le vrai moteur ; et le cadre commun des essais d'écrans, avec sa garde des boîtes.

#include "support/DossierEssai.h"
#include "support/GardeBoites.h"
#include "support/Outils.h"
#include "support/SessionEssai.h"

#include "base/Montant.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"

#include <QList>
#include <QString>
#include <QtTest>
#include <memory>

class QWidget;

namespace essai {

// Session sur la société 1, exercice 2024, maroval.ini livré et base du dossier ouverte
// (créée aux tables livrées si elle n'y est pas).
void OuvrirSession(const QString& dossier, const QString& debut = QStringLiteral("20240101"));

// Copie la base (fermée) et maroval.ini d'un dossier dans un autre : des livres préparés une
// fois servent à plusieurs essais.
void CopierDonnees(const QString& depuis, const QString& vers);

// La même session sur une base neuve : la société 1 et son exercice 2024 (du 1er janvier
// au 31 décembre sauf autre début).
void CreerExercice(const QString& dossier, const QString& debut);

// Le tout dans le dossier d'essai. L'exercice de janvier est fait une fois par programme
// d'essai puis copié : une base neuve (schéma et tables livrées) coûte plus que l'essai.
void OuvrirExercice(const support::DossierEssai& dossier,
                    const QString& debut = QStringLiteral("20240101"));

// Compte de l'exercice d'essai créé comme le plan le crée (codes de la plage filtre du
// numéro, ligne de budget des charges et produits) ; sans effet s'il existe déjà.
void Compte(const QString& numero, const QString& libelle);
bool CompteExiste(const QString& numero);
bool BudgetExiste(const QString& numero);

// Une ligne de wSaisie comme la saisie la laisse ; montant positif quand le compte grandit
// de son côté naturel (débit pour E1 et E2, crédit pour R1 et R2).
struct LigneEssai {
    QString numero, sens;
    Montant montant;
    QString libelle = QStringLiteral("Essai");
};

// Passe une écriture équilibrée par le moteur, à la date donnée (JJ/MM/AAAA).
void Passer(const QString& date, const QList<LigneEssai>& lignes,
            const QString& journal = QStringLiteral("D"));

// Ecran montré et actif (le focus et le clavier vont à lui), sans exec().
template <class E> std::unique_ptr<E> MontrerEcran() {
    auto e = std::make_unique<E>();
    e->show();
    e->activateWindow();
    if (!QTest::qWaitForWindowActive(e.get())) qWarning("fenêtre inactive");
    return e;
}

// Clic sur le rond d'une option : le centre d'une option étirée par la mise en page tombe
// hors de la zone qui réagit.
void CliquerOption(QWidget* racine, const char* nom);

// Le cadre commun des essais d'écrans : dossier neuf, exercice ouvert, garde des boîtes ; à
// la fin, aucune boîte venue sans réponse et aucune réponse laissée.
struct CadreEssai {
    std::unique_ptr<support::DossierEssai> dossier;
    std::unique_ptr<GardeBoites> garde;

    // Sans exercice : le dossier et la garde seuls, l'essai pose ses propres livres.
    void Ouvrir(bool avecExercice = true);
    // Les écrans de l'essai sont déjà détruits.
    void Fermer();
};

} // namespace essai
