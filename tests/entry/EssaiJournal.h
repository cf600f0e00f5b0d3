#pragma once
// Livres d'essai pour les écrans qui partent du journal (annulation, libellé) : trois
// groupes passés par le moteur, et l'écran montré avec son journal rempli.

#include "support/DossierEssai.h"
#include "support/GestesGrille.h"
#include "support/LivresEssai.h"
#include "support/Recalcul.h"

#include "ui/Boite.h"
#include "ui/Grille.h"

#include <QTest>
#include <memory>

namespace essai {

// Vente 1 à 3, groupe de cinq lignes 4 à 8 sur le journal des opérations diverses,
// vente 9 à 11.
inline void TroisGroupes() {
    Vente(Euros(100), Euros(20));
    ViderSaisie();
    Saisir(QStringLiteral("411001"), QStringLiteral("D"), Euros(1200), QStringLiteral("D"));
    Saisir(QStringLiteral("512"), QStringLiteral("D"), Euros(300), QStringLiteral("D"));
    Saisir(QStringLiteral("707"), QStringLiteral("C"), Euros(1000), QStringLiteral("D"));
    Saisir(QStringLiteral("44571"), QStringLiteral("C"), Euros(200), QStringLiteral("D"));
    Saisir(QStringLiteral("626"), QStringLiteral("C"), Euros(300), QStringLiteral("D"));
    Passer();
    Vente(Euros(200), Euros(40));
}

// Dossier neuf, exercice ouvert, état de départ gardé pour le recalcul, trois groupes.
struct LivresTroisGroupes {
    std::unique_ptr<support::DossierEssai> dossier;
    Depart depart;

    void Ouvrir() {
        support::RemettreServicesAZero();
        dossier = std::make_unique<support::DossierEssai>();
        OuvrirLivres(dossier->Chemin());
        depart = Photographier();
        TroisGroupes();
    }
    void Fermer() {
        FermerBase();
        dossier.reset();
    }
};

// Livres aux plus petits groupes : deux lignes au début (1-2), une vente (3-5), deux lignes
// encore (6-7) à la fin.
inline void LivresGroupesDeDeux(LivresTroisGroupes& livres) {
    livres.Fermer();
    livres.dossier = std::make_unique<support::DossierEssai>();
    OuvrirLivres(livres.dossier->Chemin());
    for (int i = 0; i < 3; ++i) {
        if (i == 1) {
            Vente(Euros(10), Euros(2));
            continue;
        }
        ViderSaisie();
        Saisir(QStringLiteral("512"), QStringLiteral("D"), Euros(5 + i));
        Saisir(QStringLiteral("411001"), QStringLiteral("C"), Euros(5 + i));
        Passer();
    }
}

// Ligne de Tree1 qui montre ce numéro.
inline int LigneDuNumero(ui::Grille* g, int numero) {
    return g->ChercherTexte(0, QString::number(numero));
}

// Clic sur la ligne du numéro (ou sur la ligne donnée si numero < 0).
inline void CliquerNumero(ui::Grille* g, int numero) {
    const int ligne = LigneDuNumero(g, numero);
    QVERIFY2(ligne >= 0, qPrintable(QStringLiteral("ligne %1 absente").arg(numero)));
    g->RendreVisible(ligne);
    QVERIFY(support::CliquerCellule(g, ligne, 0));
}

inline QList<int> Numeros(ui::Grille* g) {
    QList<int> n;
    for (int l = 0; l < g->NombreLignes(); ++l)
        n << g->DonneeLigne(l).toInt();
    return n;
}

inline QString DerniereBoite() {
    const auto& j = ui::JournalBoites();
    return j.isEmpty() ? QString() : j.last().texte;
}

inline table::Ecriture LigneLue(int numero) {
    table::Ecriture e;
    LireEcriture(Cle, numero, e);
    return e;
}

} // namespace essai
