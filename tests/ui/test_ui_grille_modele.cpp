// Grille sur son modèle : tri stable sur le texte ou sur la valeur des montants et des
// dates, données et couleurs qui suivent leur ligne, ligne courante gardée au tri,
// remplissage annoncé d'un coup, textes réécrits, grandes listes remplies puis vidées.
#include "support/GestesGrille.h"
#include "ui/Grille.h"

#include <QHeaderView>
#include <QSignalSpy>
#include <QtTest>

using ui::Grille;

namespace {

QStringList Colonne(const Grille& g, int colonne) {
    QStringList textes;
    for (int i = 0; i < g.NombreLignes(); ++i)
        textes << g.Texte(i, colonne);
    return textes;
}

QList<int> Donnees(const Grille& g) {
    QList<int> d;
    for (int i = 0; i < g.NombreLignes(); ++i)
        d << g.DonneeLigne(i).toInt();
    return d;
}

void CliquerTitre(Grille& g, int colonne) {
    QHeaderView* entete = g.header();
    const QPoint point(entete->sectionViewportPosition(colonne) + entete->sectionSize(colonne) / 2,
                       entete->height() / 2);
    QTest::mouseClick(entete->viewport(), Qt::LeftButton, Qt::NoModifier, point);
}

} // namespace

class TestGrilleModele : public QObject {
    Q_OBJECT

private slots:
    void tri_egauxGardentLeurOrdreDansLesDeuxSens() {
        Grille g;
        g.FixerColonnes({"Libellé", "Montant"});
        g.AjouterLigne({"b", ""}, 1);
        g.AjouterLigne({"a", ""}, 2);
        g.AjouterLigne({"b", ""}, 3);
        g.AjouterLigne({"a", ""}, 4);
        g.Trier(0, Qt::AscendingOrder);
        QCOMPARE(Donnees(g), QList<int>({2, 4, 1, 3}));
        g.Trier(0, Qt::DescendingOrder);
        QCOMPARE(Donnees(g), QList<int>({1, 3, 2, 4}));
    }

    void tri_montantsParLeurValeurEtVidesDevant() {
        Grille g;
        g.FixerColonnes({"Compte", "Solde"});
        g.FixerTriMontants(1);
        g.AjouterLigne({"512", "1 234,56 E"});
        g.AjouterLigne({"401", "-50,00 E"});
        g.AjouterLigne({"607", "9,00 E"});
        g.AjouterLigne({"", ""});
        g.AjouterLigne({"706", "234,56 E"});
        g.Trier(1);
        QCOMPARE(Colonne(g, 1), QStringList({"", "-50,00 E", "9,00 E", "234,56 E", "1 234,56 E"}));
        g.Trier(1, Qt::DescendingOrder);
        QCOMPARE(Colonne(g, 0), QStringList({"512", "706", "607", "401", ""}));
    }

    void tri_datesParLeurJourEtNonParLeurTexte() {
        Grille g;
        g.FixerColonnes({"Date"});
        g.FixerTriDates(0);
        g.AjouterLigne({"05/01/2025"});
        g.AjouterLigne({"20/12/2024"});
        g.AjouterLigne({"31/01/2024"});
        g.AjouterLigne({""});
        CliquerTitre(g, 0);
        QCOMPARE(Colonne(g, 0), QStringList({"", "31/01/2024", "20/12/2024", "05/01/2025"}));
    }

    void cles_montantEtDateLisentLeTexteAffiche() {
        QCOMPARE(Grille::CleMontant(u"-1 234,56 E"), -1234.56);
        QCOMPARE(Grille::CleMontant(u"0,05"), 0.05);
        QCOMPARE(Grille::CleMontant(u"12"), 12.0);
        QVERIFY(Grille::CleMontant(u"") < -1e300);
        QCOMPARE(Grille::CleDate(u"15/03/2024"), 20240315.0);
        QVERIFY(Grille::CleDate(u"__/__/____") < -1e300);
    }

    void tri_donneesEtCouleursSuiventLeurLigne() {
        Grille g;
        g.FixerColonnes({"Numéro", "Libellé"});
        g.AjouterLigne({"3", "trois"}, 30);
        g.AjouterLigne({"1", "un"}, 10);
        g.AjouterLigne({"2", "deux"}, 20);
        g.FixerDonneeCellule(0, 1, QStringLiteral("donnée de trois"));
        g.FixerCouleurLigne(1, Qt::red, Qt::yellow);
        g.Trier(0);
        QCOMPARE(Colonne(g, 1), QStringList({"un", "deux", "trois"}));
        QCOMPARE(Donnees(g), QList<int>({10, 20, 30}));
        QCOMPARE(g.DonneeCellule(2, 1).toString(), QStringLiteral("donnée de trois"));
        QVERIFY(!g.DonneeCellule(0, 1).isValid());
        QCOMPARE(g.CouleurTexte(0, 0), QColor(Qt::red));
        QCOMPARE(g.CouleurFond(0, 1), QColor(Qt::yellow));
        QVERIFY(!g.CouleurTexte(1, 0).isValid());
        // La vue lit les mêmes valeurs par le modèle.
        QCOMPARE(g.model()->data(g.model()->index(0, 0), Qt::ForegroundRole).value<QColor>(),
                 QColor(Qt::red));
        QCOMPARE(g.model()->data(g.model()->index(2, 0), Qt::UserRole).toInt(), 30);
    }

    void tri_laLigneCouranteResteSurLaMemeLigne() {
        Grille g;
        g.FixerColonnes({"Numéro"});
        for (const char* n : {"c", "a", "d", "b"})
            g.AjouterLigne({QString::fromLatin1(n)}, QString::fromLatin1(n));
        g.FixerLigneCourante(2);
        QCOMPARE(g.DonneeLigne(g.LigneCourante()).toString(), QStringLiteral("d"));
        g.Trier(0);
        QCOMPARE(g.LigneCourante(), 3);
        QCOMPARE(g.DonneeLigne(g.LigneCourante()).toString(), QStringLiteral("d"));
        QVERIFY(g.EstSelectionnee(3));
    }

    void remplissage_laVueApprendLesLignesDUnCoup() {
        Grille g;
        g.FixerColonnes({"Numéro", "Libellé"});
        QSignalSpy insertions(g.model(), &QAbstractItemModel::rowsInserted);
        g.DebutRemplissage();
        for (int i = 0; i < 500; ++i) {
            const int ligne = g.AjouterLigne({QString::number(i), QStringLiteral("ligne")}, i);
            QCOMPARE(ligne, i);
        }
        // Pendant le remplissage : les lignes se lisent déjà, la vue ne les connaît pas.
        QCOMPARE(g.NombreLignes(), 500);
        QCOMPARE(g.model()->rowCount(), 0);
        g.FixerDonneeCellule(499, 1, 7);
        QCOMPARE(g.Texte(250, 0), QStringLiteral("250"));
        g.FinRemplissage();
        QCOMPARE(insertions.count(), 1);
        QCOMPARE(g.model()->rowCount(), 500);
        QCOMPARE(g.DonneeCellule(499, 1).toInt(), 7);
        // Hors remplissage, chaque ligne est annoncée aussitôt.
        g.AjouterLigne({"500", "dernière"});
        QCOMPARE(insertions.count(), 2);
        QCOMPARE(g.model()->rowCount(), 501);
    }

    void textes_reecritsPlusCourtsOuPlusLongs() {
        Grille g;
        g.FixerColonnes({"A", "B"});
        g.AjouterLigne({"premier", "deuxième"});
        g.AjouterLigne({"x", "y"});
        g.FixerTexte(0, 0, QStringLiteral("court"));
        g.FixerTexte(0, 1, QStringLiteral("un texte bien plus long que l'ancien"));
        g.FixerTexte(1, 0, QString());
        QCOMPARE(g.Texte(0, 0), QStringLiteral("court"));
        QCOMPARE(g.Texte(0, 1), QStringLiteral("un texte bien plus long que l'ancien"));
        QCOMPARE(g.Texte(1, 0), QString());
        QCOMPARE(g.Texte(1, 1), QStringLiteral("y"));
        QCOMPARE(g.model()->data(g.model()->index(0, 1)).toString(),
                 QStringLiteral("un texte bien plus long que l'ancien"));
    }

    void suppressionEtInsertion_lesAutresLignesGardentLeursDonnees() {
        Grille g;
        g.FixerColonnes({"N"});
        for (int i = 0; i < 5; ++i)
            g.AjouterLigne({QString::number(i)}, i);
        g.FixerCouleurLigne(3, Qt::blue);
        g.SupprimerLigne(1);
        g.InsererLigne(0, {"début"}, 99);
        QCOMPARE(Colonne(g, 0), QStringList({"début", "0", "2", "3", "4"}));
        QCOMPARE(Donnees(g), QList<int>({99, 0, 2, 3, 4}));
        QCOMPARE(g.CouleurTexte(3, 0), QColor(Qt::blue));
        QCOMPARE(g.ChercherDonnee(4), 4);
        QCOMPARE(g.ChercherTexte(0, "2"), 2);
    }

    void grandeListe_remplieTrieePuisVidee() {
        Grille g;
        g.FixerColonnes({"Numéro", "Libellé", "Débit"});
        g.FixerTriMontants(2);
        g.resize(600, 400);
        g.show();
        constexpr int n = 200000;
        g.DebutRemplissage();
        for (int i = 0; i < n; ++i)
            g.AjouterLigne({QString::number(i), QStringLiteral("Facture %1").arg(n - i),
                            QStringLiteral("%1,00 E").arg(i % 1000)},
                           i);
        g.FinRemplissage();
        QCOMPARE(g.NombreLignes(), n);
        QCOMPARE(g.model()->rowCount(), n);
        QCOMPARE(g.Texte(n - 1, 1), QStringLiteral("Facture 1"));
        g.Trier(2, Qt::DescendingOrder);
        QCOMPARE(g.Texte(0, 2), QStringLiteral("999,00 E"));
        // Tri stable : à montant égal, l'ordre de remplissage reste.
        QCOMPARE(g.DonneeLigne(0).toInt(), 999);
        QCOMPARE(g.DonneeLigne(1).toInt(), 1999);
        g.FixerLigneCourante(10);
        g.Vider();
        QCOMPARE(g.NombreLignes(), 0);
        QCOMPARE(g.model()->rowCount(), 0);
        QCOMPARE(g.LigneCourante(), -1);
        // Largeurs et colonnes cachées ne dépendent pas des lignes.
        g.FixerLargeurColonne(1, 222);
        g.setColumnHidden(2, true);
        g.AjouterLigne({"1", "seule", "1,00 E"});
        g.Vider();
        g.AjouterLigne({"2", "autre", "2,00 E"});
        QCOMPARE(g.LargeurColonne(1), 222);
        QVERIFY(g.isColumnHidden(2));
    }
};

QTEST_MAIN(TestGrilleModele)
#include "test_ui_grille_modele.moc"
