// Une année d'une entreprise : bilan d'ouverture, ventes, achats, règlements, loyer, puis
// l'écriture de résultat le dernier jour. La balance retrouve les totaux de la vérification,
// le bilan est équilibré et dit le résultat affecté, le compte de résultat montre le
// résultat de l'année calculé ici à part, et les piles du bilan graphique font 2500.

#include "EssaiConsultation.h"

#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
#include "consultation/Bilan.h"
#include "consultation/Resultat.h"
#include "posting/Verification.h"
#include "ui/Application.h"

#include <QProgressBar>

using namespace essai;

namespace {

QString Aff(Montant m) {
    return FormaterMontant(m, session().FormatMontant);
}

QString Date(int jour, int mois) {
    return QStringLiteral("%1/%2/2024").arg(jour, 2, 10, QChar('0')).arg(mois, 2, 10, QChar('0'));
}

double Pile(QWidget* e, const QList<const char*>& noms) {
    double total = 0;
    for (const char* nom : noms) {
        auto* j = e->findChild<QProgressBar*>(QString::fromLatin1(nom));
        if (!j->isHidden()) total += j->property("Hauteur").toDouble();
    }
    return total;
}

} // namespace

class TestBilanAnnee : public QObject {
    Q_OBJECT
    BancConsultation banc;
    inline static Montant charges, produits;

    static void Annee() {
        for (const char* n :
             {"512", "2154", "101", "164", "607", "613", "707", "44566", "44571", "120", "129"})
            Compte(QString::fromLatin1(n), QStringLiteral("Compte ") + QString::fromLatin1(n));
        for (int i = 1; i <= 3; ++i)
            Compte(QStringLiteral("41100%1").arg(i), QStringLiteral("Client %1").arg(i));
        for (int i = 1; i <= 2; ++i)
            Compte(QStringLiteral("40100%1").arg(i), QStringLiteral("Fournisseur %1").arg(i));
        Ouvrir("512", Euros(10000));
        Ouvrir("2154", Euros(5000));
        Ouvrir("101", Euros(12000));
        Ouvrir("164", Euros(3000));
        charges = produits = Montant();
        for (int m = 1; m <= 12; ++m) {
            const QString client = QStringLiteral("41100%1").arg(1 + m % 3);
            const QString fournisseur = QStringLiteral("40100%1").arg(1 + m % 2);
            const Montant ht = Euros(1000 + 37.25 * m), tva = Euros(200 + 7.45 * m);
            Passer(Date(5, m), {{client, "D", ht + tva}, {"707", "C", ht}, {"44571", "C", tva}},
                   "V");
            const Montant achat = Euros(400 + 11.5 * m), tvaAchat = Euros(80 + 2.3 * m);
            Passer(Date(8, m),
                   {{"607", "D", achat},
                    {"44566", "D", tvaAchat},
                    {fournisseur, "C", achat + tvaAchat}},
                   "A");
            Passer(Date(15, m), {{"512", "D", ht + tva}, {client, "C", ht + tva}}, "T");
            Passer(Date(20, m), {{fournisseur, "D", achat}, {"512", "C", achat}}, "T");
            Passer(Date(25, m), {{"613", "D", Euros(450)}, {"512", "C", Euros(450)}}, "T");
            produits += ht;
            charges += achat + Euros(450);
        }
        // Écriture de résultat du dernier jour.
        const Montant resultat = produits - charges;
        if (resultat >= Montant())
            Passer("31/12/2024", {{"699", "D", resultat}, {"120", "C", resultat}}, "I");
        else
            Passer("31/12/2024", {{"129", "D", resultat.abs()}, {"799", "C", resultat.abs()}}, "I");
        Base().exec("UPDATE Constante SET DateSaisie='20241231', OuvertureClos=1");
    }

private slots:
    void initTestCase() { banc.Preparer(&TestBilanAnnee::Annee); }
    void cleanupTestCase() { banc.Liberer(); }
    void init() { banc.Debut(); }
    void cleanup() {
        const QStringList inattendues = banc.Fin();
        QVERIFY2(inattendues.isEmpty(), qPrintable(inattendues.join(" | ")));
    }

    void balance_totauxDeLaVerification() {
        auto e = MontrerEcran<ecran::Balance>();
        QCOMPARE(EcartsTotauxBalance(e.get()), QString());
        CliquerOption(e.get(), "BRCompl");
        const QStringList totaux = Ligne(Grille(e.get(), "Tree2"), 0);
        QCOMPARE(totaux[5], totaux[6]);
        QVERIFY(Texte(e.get(), "Label1").isEmpty());
    }

    void bilan_equilibreEtResultatAffecte() {
        auto e = MontrerEcran<ecran::Bilan>();
        QCOMPARE(Texte(e.get(), "Label3"), Texte(e.get(), "Label4"));
        QCOMPARE(Texte(e.get(), "Label10"), Aff(Montant()));
        QCOMPARE(Texte(e.get(), "Label9"),
                 QString::fromUtf8("Votre résultat a été affecté au bilan."));
    }

    void resultat_leResultatDeLAnnee() {
        auto e = MontrerEcran<ecran::Resultat>();
        QCOMPARE(Texte(e.get(), "Label3"), Aff(charges));
        QCOMPARE(Texte(e.get(), "Label4"), Aff(produits));
        QCOMPARE(Texte(e.get(), "Label10"), Aff(produits - charges));
        QCOMPARE(Texte(e.get(), "Label9"), QString::fromUtf8("Votre résultat :"));
    }

    void bilGraph_pilesDe2500() {
        auto e = MontrerEcran<ecran::BilGraph>();
        QVERIFY2(Texte(e.get(), "Label29").isEmpty(), qPrintable(Texte(e.get(), "Label30")));
        QVERIFY(qAbs(Pile(e.get(), {"GBIENS", "GDAR", "GMD", "GRN"}) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), {"GSN", "GDAP", "GRP"}) - 2500) < 1e-6);
        CliquerOption(e.get(), "Option2");
        QVERIFY(qAbs(Pile(e.get(), {"GCONS", "GRPCR"}) - 2500) < 1e-6);
        QVERIFY(qAbs(Pile(e.get(), {"GACTI", "GRNCR"}) - 2500) < 1e-6);
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestBilanAnnee t;
    return QTest::qExec(&t, argc, argv);
}

#include "test_bilan_annee.moc"
