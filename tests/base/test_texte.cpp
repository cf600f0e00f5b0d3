// Dates, guillemets, blancs, séparateurs décimaux et texte de l'erreur d'exécution.

#include "base/Texte.h"
#include "support/DossierEssai.h"
#include "ui/AfficherErreur.h"
#include "ui/Boite.h"

#include <QDate>
#include <QTest>

class TestTexte : public QObject {
    Q_OBJECT

private slots:
    void init();
    void dateValide_data();
    void dateValide();
    void dateValide_dernierJourDeChaqueMois();
    void dateVersEcran_data();
    void dateVersEcran();
    void dateVersBase_data();
    void dateVersBase();
    void dates_allerRetourSurDeuxSiecles();
    void doublerGuillemets_data();
    void doublerGuillemets();
    void sansEspaces_data();
    void sansEspaces();
    void separateurDecimal_data();
    void separateurDecimal();
    void texteErreur_lignesDeTiretsNumeroEtLibelle();
    void afficherErreur_boiteCritiqueAvecLeTexte();
    void afficherErreur_sansErreurAucuneBoite();
};

void TestTexte::init() {
    support::RemettreServicesAZero();
}

void TestTexte::dateValide_data() {
    QTest::addColumn<QString>("date");
    QTest::addColumn<bool>("valide");
    QTest::newRow("dateOrdinaire") << "15/06/2024" << true;
    QTest::newRow("fevrier29AnneeDivisiblePar4") << "29/02/2024" << true;
    QTest::newRow("fevrier29AnneeNonDivisiblePar4") << "29/02/2023" << false;
    QTest::newRow("fevrier28AnneeOrdinaire") << "28/02/2023" << true;
    QTest::newRow("fevrier29En1900ValideParLaRegleDes4") << "29/02/1900" << true;
    QTest::newRow("fevrier29En2100ValideParLaRegleDes4") << "29/02/2100" << true;
    QTest::newRow("fevrier29En2000") << "29/02/2000" << true;
    QTest::newRow("fevrier30Refuse") << "30/02/2024" << false;
    QTest::newRow("avril31Refuse") << "31/04/2024" << false;
    QTest::newRow("jour32Refuse") << "32/01/2024" << false;
    QTest::newRow("jourZeroRefuse") << "00/01/2024" << false;
    QTest::newRow("moisZeroRefuse") << "01/00/2024" << false;
    QTest::newRow("mois13Refuse") << "01/13/2024" << false;
    QTest::newRow("anneeMinimale1900") << "01/01/1900" << true;
    QTest::newRow("annee1899Refusee") << "31/12/1899" << false;
    QTest::newRow("anneeMaximale2200") << "31/12/2200" << true;
    QTest::newRow("annee2201Refusee") << "01/01/2201" << false;
    QTest::newRow("texteVideRefuse") << "" << false;
    QTest::newRow("masqueVideRefuse") << "__/__/____" << false;
    QTest::newRow("masqueAMoitieRempliRefuse") << "12/__/____" << false;
    QTest::newRow("sansZerosRefuse") << "1/1/2024" << false;
    QTest::newRow("anneeSurDeuxChiffresRefusee") << "01/01/24" << false;
    QTest::newRow("tiretsAuLieuDesBarresRefuses") << "01-01-2024" << false;
    QTest::newRow("blancFinalRefuse") << "01/01/2024 " << false;
    QTest::newRow("blancInitialRefuse") << " 1/01/2024" << false;
    QTest::newRow("lettresRefusees") << "ab/cd/efgh" << false;
    QTest::newRow("derniereLettreRefusee") << "01/01/202a" << false;
    QTest::newRow("signeRefuse") << "+1/01/2024" << false;
    QTest::newRow("formeDeLaBaseRefusee") << "20240101" << false;
    QTest::newRow("chiffresNonAsciiRefuses") << "\u0661\u0662/01/2024" << false;
}

void TestTexte::dateValide() {
    QFETCH(QString, date);
    QFETCH(bool, valide);
    QCOMPARE(DateValide(date), valide);
}

void TestTexte::dateValide_dernierJourDeChaqueMois() {
    const int derniers[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    for (int mois = 1; mois <= 12; ++mois) {
        const QString mm = QStringLiteral("%1").arg(mois, 2, 10, QLatin1Char('0'));
        const QString dernier = QString::number(derniers[mois - 1]) + u'/' + mm + "/2023";
        const QString suivant = QString::number(derniers[mois - 1] + 1) + u'/' + mm + "/2023";
        QVERIFY2(DateValide(dernier), qPrintable(dernier));
        QVERIFY2(!DateValide(suivant), qPrintable(suivant));
    }
}

void TestTexte::dateVersEcran_data() {
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("ecran");
    QTest::newRow("parPosition") << "20240131"
                                 << "31/01/2024";
    QTest::newRow("texteVideDonneVide") << ""
                                        << "";
    QTest::newRow("tropCourtDonneVide") << "2024013"
                                        << "";
    QTest::newRow("tropLongLuParPosition") << "202401319"
                                           << "31/01/2024";
    QTest::newRow("dateVideDeLaBase") << "________"
                                      << "__/__/____";
}

void TestTexte::dateVersEcran() {
    QFETCH(QString, base);
    QFETCH(QString, ecran);
    QCOMPARE(DateVersEcran(base), ecran);
}

void TestTexte::dateVersBase_data() {
    QTest::addColumn<QString>("ecran");
    QTest::addColumn<QString>("base");
    QTest::newRow("parPosition") << "31/01/2024"
                                 << "20240131";
    QTest::newRow("texteVideDonneVide") << ""
                                        << "";
    QTest::newRow("tropCourtDonneVide") << "31/01/202"
                                        << "";
    QTest::newRow("masqueVideParPosition") << "__/__/____"
                                           << "________";
}

void TestTexte::dateVersBase() {
    QFETCH(QString, ecran);
    QFETCH(QString, base);
    QCOMPARE(DateVersBase(ecran), base);
}

void TestTexte::dates_allerRetourSurDeuxSiecles() {
    int valides = 0;
    for (QDate jour(1900, 1, 1); jour <= QDate(2200, 12, 31); jour = jour.addDays(7)) {
        const QString base = jour.toString(QStringLiteral("yyyyMMdd"));
        const QString ecran = DateVersEcran(base);
        QCOMPARE(ecran, jour.toString(QStringLiteral("dd/MM/yyyy")));
        QCOMPARE(DateVersBase(ecran), base);
        QVERIFY2(DateValide(ecran), qPrintable(ecran));
        ++valides;
    }
    QVERIFY(valides > 15000);
}

void TestTexte::doublerGuillemets_data() {
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("sansGuillemetInchange") << "Factures des clients"
                                           << "Factures des clients";
    QTest::newRow("apostropheInchangee") << "l'été"
                                         << "l'été";
    QTest::newRow("texteVideInchange") << ""
                                       << "";
    QTest::newRow("unGuillemetDouble") << "a\"b"
                                       << "a\"\"b";
    QTest::newRow("guillemetSeul") << "\""
                                   << "\"\"";
    QTest::newRow("guillemetsAuxBouts") << "\"x\""
                                        << "\"\"x\"\"";
    QTest::newRow("guillemetsDejaDoublesRedoubles") << "\"\""
                                                    << "\"\"\"\"";
}

void TestTexte::doublerGuillemets() {
    QFETCH(QString, texte);
    QFETCH(QString, attendu);
    QString argument = texte;
    QCOMPARE(DoublerGuillemets(argument), attendu);
    QCOMPARE(argument, attendu); // l'argument est remplacé par le résultat
}

void TestTexte::sansEspaces_data() {
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("blancsDesMilliers") << "1 234 567,89 E"
                                       << "1234567,89E";
    QTest::newRow("espacesInsecables") << "1\u00A0234\u202F567"
                                       << "1234567";
    QTest::newRow("tabulation") << "a\tb"
                                << "ab";
    QTest::newRow("queDesBlancs") << "   "
                                  << "";
    QTest::newRow("texteVide") << ""
                               << "";
    QTest::newRow("sansBlancInchange") << "abc"
                                       << "abc";
}

void TestTexte::sansEspaces() {
    QFETCH(QString, texte);
    QFETCH(QString, attendu);
    QCOMPARE(SansEspaces(texte), attendu);
}

// Les deux routines sont symétriques : chaque cas est essayé dans les deux sens.
void TestTexte::separateurDecimal_data() {
    QTest::addColumn<QString>("texte");
    QTest::addColumn<QString>("versVirgule");
    QTest::addColumn<QString>("versPoint");
    QTest::newRow("rogneEtRemplace") << "  12.5  "
                                     << "12,5"
                                     << "12.5";
    QTest::newRow("premierSeulement") << "1.2,3"
                                      << "1,2,3"
                                      << "1.2.3";
    QTest::newRow("autreSeparateurRogneSeulement") << " 12,5 "
                                                   << "12,5"
                                                   << "12.5";
    QTest::newRow("texteVide") << ""
                               << ""
                               << "";
    QTest::newRow("separateurSeul") << "."
                                    << ","
                                    << ".";
    QTest::newRow("deuxPoints") << "1.2.3"
                                << "1,2.3"
                                << "1.2.3";
    QTest::newRow("deuxVirgules") << "1,2,3"
                                  << "1,2,3"
                                  << "1.2,3";
}

void TestTexte::separateurDecimal() {
    QFETCH(QString, texte);
    QFETCH(QString, versVirgule);
    QFETCH(QString, versPoint);
    QCOMPARE(PointVersVirgule(texte), versVirgule);
    QCOMPARE(VirguleVersPoint(texte), versPoint);
}

void TestTexte::texteErreur_lignesDeTiretsNumeroEtLibelle() {
    const QString tirets(68, u'-');
    QCOMPARE(TexteErreur(QStringLiteral("Erreur pendant la restauration"), 53,
                         QStringLiteral("Fichier introuvable")),
             QStringLiteral("Erreur pendant la restauration\n") + tirets +
                 QStringLiteral("\nErreur numéro  : 53\nLibellé erreur :Fichier introuvable\n") +
                 tirets);
    QCOMPARE(tirets.size(), 68);
}

void TestTexte::afficherErreur_boiteCritiqueAvecLeTexte() {
    ui::RepondreBoite(ui::Reponse::OK);
    AfficherErreur(QStringLiteral("Restauration"), 71, QStringLiteral("Disque non prêt"));
    QCOMPARE(ui::ReponsesEnAttente(), 0);
    QCOMPARE(ui::JournalBoites().size(), 1);
    const ui::EntreeJournal& boite = ui::JournalBoites().first();
    QCOMPARE(boite.texte,
             TexteErreur(QStringLiteral("Restauration"), 71, QStringLiteral("Disque non prêt")));
    QVERIFY(boite.texte.contains(QStringLiteral("Erreur numéro  : 71")));
    QCOMPARE(boite.icone, ui::Icone::Critique);
    QCOMPARE(boite.titre, QStringLiteral("Maroval"));
    QCOMPARE(boite.boutons, ui::Boutons::OK);
}

void TestTexte::afficherErreur_sansErreurAucuneBoite() {
    AfficherErreur(QStringLiteral("Restauration"), 0, QString());
    QVERIFY(ui::JournalBoites().isEmpty());
}

QTEST_MAIN(TestTexte)
#include "test_texte.moc"
