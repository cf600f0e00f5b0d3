// Le fichier de profil maroval.ini, dans le texte : lecture, écriture et effacement clé par
// clé, refus de ce qui casserait le fichier.

#include "session/FichierProfil.h"

#include <QTest>

class TestFichierProfil : public QObject {
    Q_OBJECT

private slots:
    void lireDansTexte_data();
    void lireDansTexte();
    void ecrireDansTexte_data();
    void ecrireDansTexte();
    void ecrireDansTexte_refuseCeQuiCasseraitLeFichier_data();
    void ecrireDansTexte_refuseCeQuiCasseraitLeFichier();
    void ecrireDansTexte_seRelitCommeEcrit_data();
    void ecrireDansTexte_seRelitCommeEcrit();
    void effacerDansTexte_data();
    void effacerDansTexte();
};

void TestFichierProfil::lireDansTexte_data() {
    QTest::addColumn<QByteArray>("contenu");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("cle");
    QTest::addColumn<QString>("attendu");
    QTest::newRow("cleExistante") << QByteArray("[Securite]\nErreur=1\n") << "Securite"
                                  << "Erreur"
                                  << "1";
    QTest::newRow("casseDeLaCleIgnoree") << QByteArray("[Securite]\nDernum=12\n") << "Securite"
                                         << "DerNum"
                                         << "12";
    QTest::newRow("casseDeLaSectionIgnoree") << QByteArray("[SECURITE]\nErreur=2\n") << "securite"
                                             << "Erreur"
                                             << "2";
    QTest::newRow("sectionAvecEspaces")
        << QByteArray("[Plans Types]\nPlanChoisi1=0001\n") << "Plans Types"
        << "PlanChoisi1"
        << "0001";
    QTest::newRow("blancsAutourDuNomDeSection")
        << QByteArray("  [ Plans Types ]  \nPlanChoisi1=0002\n") << "Plans Types"
        << "PlanChoisi1"
        << "0002";
    QTest::newRow("valeurRognee") << QByteArray("[A]\nx =  1  \n") << "A"
                                  << "x"
                                  << "1";
    QTest::newRow("blancsAvantLaCle") << QByteArray("[A]\n   x = 8\n") << "A"
                                      << "x"
                                      << "8";
    QTest::newRow("guillemetsAppariesRetires") << QByteArray("[A]\nx=\"a b \"\n") << "A"
                                               << "x"
                                               << "a b ";
    QTest::newRow("guillemetSeulGarde") << QByteArray("[A]\nx=\"\n") << "A"
                                        << "x"
                                        << "\"";
    QTest::newRow("guillemetNonApparieGarde") << QByteArray("[A]\nx=\"abc\n") << "A"
                                              << "x"
                                              << "\"abc";
    QTest::newRow("egalDansLaValeur") << QByteArray("[A]\nx=a=b\n") << "A"
                                      << "x"
                                      << "a=b";
    QTest::newRow("valeurVideNonRemplaceeParLeDefaut") << QByteArray("[A]\nx=\n") << "A"
                                                       << "x"
                                                       << "";
    QTest::newRow("sectionAbsenteDonneLeDefaut") << QByteArray("[A]\nx=1\n") << "B"
                                                 << "x"
                                                 << "defaut";
    QTest::newRow("cleAbsenteDonneLeDefaut") << QByteArray("[A]\nx=1\n") << "A"
                                             << "y"
                                             << "defaut";
    QTest::newRow("cleDUneAutreSectionIgnoree") << QByteArray("[A]\nx=1\n[B]\ny=2\n") << "B"
                                                << "x"
                                                << "defaut";
    QTest::newRow("cleAvantToutSectionIgnoree") << QByteArray("x=1\n[A]\n") << "A"
                                                << "x"
                                                << "defaut";
    QTest::newRow("commentaireIgnore") << QByteArray("[A]\n;x=1\n  ; x=2\n") << "A"
                                       << "x"
                                       << "defaut";
    QTest::newRow("ligneSansEgalIgnoree") << QByteArray("[A]\nbla bla\nx=2\n") << "A"
                                          << "x"
                                          << "2";
    QTest::newRow("finsDeLigneCRLF") << QByteArray("[A]\r\nx=3\r\n") << "A"
                                     << "x"
                                     << "3";
    QTest::newRow("marqueUtf8Acceptee") << QByteArray("\xEF\xBB\xBF[A]\nx=4\n") << "A"
                                        << "x"
                                        << "4";
    QTest::newRow("accentsUtf8SansCasse") << QByteArray("[Société]\nNom=Café\n") << "SOCIÉTÉ"
                                          << "nom"
                                          << "Café";
    QTest::newRow("premiereOccurrenceDeLaCle") << QByteArray("[A]\nx=1\nX=2\n") << "A"
                                               << "x"
                                               << "1";
    QTest::newRow("sectionRepeteeLueAussi") << QByteArray("[A]\ny=1\n[B]\n[A]\nx=5\n") << "A"
                                            << "x"
                                            << "5";
    QTest::newRow("contenuVideDonneLeDefaut") << QByteArray() << "A"
                                              << "x"
                                              << "defaut";
    QTest::newRow("derniereLigneSansFin") << QByteArray("[A]\nx=6") << "A"
                                          << "x"
                                          << "6";
    QTest::newRow("sectionSansCrochetFermant") << QByteArray("[A\nx=7\n") << "A"
                                               << "x"
                                               << "7";
    QTest::newRow("cleVideJamaisTrouvee") << QByteArray("[A]\n=9\n") << "A"
                                          << ""
                                          << "defaut";
}

void TestFichierProfil::lireDansTexte() {
    QFETCH(QByteArray, contenu);
    QFETCH(QString, section);
    QFETCH(QString, cle);
    QFETCH(QString, attendu);
    QCOMPARE(FichierProfil::LireDansTexte(contenu, section, cle, QStringLiteral("defaut")),
             attendu);
}

void TestFichierProfil::ecrireDansTexte_data() {
    QTest::addColumn<QByteArray>("avant");
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("cle");
    QTest::addColumn<QString>("valeur");
    QTest::addColumn<QByteArray>("apres");
    QTest::newRow("remplaceEnGardantLOrthographeDeLaCle")
        << QByteArray("[Securite]\nDernum=1\n") << "Securite"
        << "DerNum"
        << "25" << QByteArray("[Securite]\nDernum=25\n");
    QTest::newRow("autresLignesGardeesOctetPourOctet")
        << QByteArray("; début\n[Securite]\nErreur=0\n\n  ; note  \nDernum=1\n[Options]\n"
                      "SymbEu=E\n")
        << "SECURITE"
        << "erreur"
        << "2"
        << QByteArray("; début\n[Securite]\nErreur=2\n\n  ; note  \nDernum=1\n[Options]\n"
                      "SymbEu=E\n");
    QTest::newRow("blancsAutourDuEgalGardes") << QByteArray("[A]\nx = 1\n") << "A"
                                              << "x"
                                              << "2" << QByteArray("[A]\nx = 2\n");
    QTest::newRow("valeurVideRemplacee") << QByteArray("[A]\nx=\n") << "A"
                                         << "x"
                                         << "3" << QByteArray("[A]\nx=3\n");
    QTest::newRow("cleAjouteeEnFinDeSection") << QByteArray("[A]\nx=1\n\n[B]\ny=2\n") << "A"
                                              << "z"
                                              << "3" << QByteArray("[A]\nx=1\nz=3\n\n[B]\ny=2\n");
    QTest::newRow("cleAjouteeAvantLesCommentairesDeFinDeSection")
        << QByteArray("[A]\nx=1\n; la section B\n[B]\n") << "A"
        << "z"
        << "3" << QByteArray("[A]\nx=1\nz=3\n; la section B\n[B]\n");
    QTest::newRow("sectionVideRecoitLaCle") << QByteArray("[A]\n[B]\n") << "A"
                                            << "z"
                                            << "3" << QByteArray("[A]\nz=3\n[B]\n");
    QTest::newRow("sectionAjouteeEnFinDeFichier")
        << QByteArray("[A]\nx=1\n") << "Plans Types"
        << "PlanChoisi1"
        << "0001" << QByteArray("[A]\nx=1\n\n[Plans Types]\nPlanChoisi1=0001\n");
    QTest::newRow("fichierVideRecoitSectionEtCle") << QByteArray() << "Securite"
                                                   << "Erreur"
                                                   << "1" << QByteArray("[Securite]\nErreur=1\n");
    QTest::newRow("derniereLigneSansFinFermee") << QByteArray("[A]\nx=1") << "A"
                                                << "y"
                                                << "2" << QByteArray("[A]\nx=1\ny=2\n");
    QTest::newRow("derniereLigneSansFinRemplacee") << QByteArray("[A]\nx=1") << "A"
                                                   << "x"
                                                   << "2" << QByteArray("[A]\nx=2");
    QTest::newRow("finsDeLigneCRLFGardeesPourUneCle") << QByteArray("[A]\r\nx=1\r\n") << "A"
                                                      << "y"
                                                      << "2" << QByteArray("[A]\r\nx=1\r\ny=2\r\n");
    QTest::newRow("finsDeLigneCRLFGardeesPourUneSection")
        << QByteArray("[A]\r\nx=1\r\n") << "B"
        << "y"
        << "2" << QByteArray("[A]\r\nx=1\r\n\r\n[B]\r\ny=2\r\n");
    QTest::newRow("marqueUtf8Gardee") << QByteArray("\xEF\xBB\xBF[A]\nx=1\n") << "A"
                                      << "x"
                                      << "2" << QByteArray("\xEF\xBB\xBF[A]\nx=2\n");
    QTest::newRow("valeurAvecEgal") << QByteArray("[A]\nx=1\n") << "A"
                                    << "x"
                                    << "a=b" << QByteArray("[A]\nx=a=b\n");
    QTest::newRow("octetsInvalidesGardes") << QByteArray("[A]\n\xFF\xFE bizarre\nx=1\n") << "A"
                                           << "x"
                                           << "2" << QByteArray("[A]\n\xFF\xFE bizarre\nx=2\n");
    QTest::newRow("valeurAccentueeEnUtf8")
        << QByteArray("[A]\nx=1\n") << "A"
        << "x"
        << "Société" << QByteArray("[A]\nx=Soci\xC3\xA9t\xC3\xA9\n");
    QTest::newRow("premiereSectionRepeteeCompletee")
        << QByteArray("[A]\nx=1\n[B]\n[A]\ny=2\n") << "A"
        << "z"
        << "3" << QByteArray("[A]\nx=1\nz=3\n[B]\n[A]\ny=2\n");
    QTest::newRow("cleDeLaSectionRepeteeRemplacee")
        << QByteArray("[A]\nx=1\n[B]\n[A]\ny=2\n") << "A"
        << "y"
        << "3" << QByteArray("[A]\nx=1\n[B]\n[A]\ny=3\n");
}

void TestFichierProfil::ecrireDansTexte() {
    QFETCH(QByteArray, avant);
    QFETCH(QString, section);
    QFETCH(QString, cle);
    QFETCH(QString, valeur);
    QFETCH(QByteArray, apres);
    const std::optional<QByteArray> resultat =
        FichierProfil::EcrireDansTexte(avant, section, cle, valeur);
    QVERIFY(resultat.has_value());
    QCOMPARE(*resultat, apres);
}

void TestFichierProfil::ecrireDansTexte_refuseCeQuiCasseraitLeFichier_data() {
    QTest::addColumn<QString>("section");
    QTest::addColumn<QString>("cle");
    QTest::addColumn<QString>("valeur");
    QTest::newRow("crochetFermantDansLaSection") << "A]B"
                                                 << "x"
                                                 << "1";
    QTest::newRow("finDeLigneDansLaSection") << "A\nB"
                                             << "x"
                                             << "1";
    QTest::newRow("cleVide") << "A"
                             << ""
                             << "1";
    QTest::newRow("cleFaiteDeBlancs") << "A"
                                      << "   "
                                      << "1";
    QTest::newRow("egalDansLaCle") << "A"
                                   << "x=y"
                                   << "1";
    QTest::newRow("cleCommeUnCommentaire") << "A"
                                           << ";x"
                                           << "1";
    QTest::newRow("cleCommeUneSection") << "A"
                                        << "[x"
                                        << "1";
    QTest::newRow("finDeLigneDansLaCle") << "A"
                                         << "x\ny"
                                         << "1";
    QTest::newRow("sautDeLigneDansLaValeur") << "A"
                                             << "x"
                                             << "1\n[B]";
    QTest::newRow("retourChariotDansLaValeur") << "A"
                                               << "x"
                                               << "1\r2";
}

void TestFichierProfil::ecrireDansTexte_refuseCeQuiCasseraitLeFichier() {
    QFETCH(QString, section);
    QFETCH(QString, cle);
    QFETCH(QString, valeur);
    QVERIFY(!FichierProfil::EcrireDansTexte("[A]\nx=0\n", section, cle, valeur).has_value());
}

void TestFichierProfil::ecrireDansTexte_seRelitCommeEcrit_data() {
    QTest::addColumn<QString>("valeur");
    QTest::addColumn<QString>("relue");
    QTest::newRow("valeurSimple") << "12"
                                  << "12";
    QTest::newRow("valeurVide") << ""
                                << "";
    QTest::newRow("blancsAuxBoutsPerdus") << "  a b  "
                                          << "a b";
    QTest::newRow("guillemetsAppariesRetires") << "\"a\""
                                               << "a";
    QTest::newRow("pointVirguleDansLaValeur") << "a;b"
                                              << "a;b";
    QTest::newRow("crochetsDansLaValeur") << "[A]"
                                          << "[A]";
}

void TestFichierProfil::ecrireDansTexte_seRelitCommeEcrit() {
    QFETCH(QString, valeur);
    QFETCH(QString, relue);
    for (const QByteArray& avant : {QByteArray(), QByteArray("[Options]\r\nSymbEu=E\r\n"),
                                    QByteArray("[options]\nnbdecimales=2")}) {
        const auto apres = FichierProfil::EcrireDansTexte(avant, "Options", "NbDecimales", valeur);
        QVERIFY(apres.has_value());
        QCOMPARE(FichierProfil::LireDansTexte(*apres, "OPTIONS", "nbDECIMALES", "defaut"), relue);
    }
}

void TestFichierProfil::effacerDansTexte_data() {
    QTest::addColumn<QByteArray>("avant");
    QTest::addColumn<QString>("cle");
    QTest::addColumn<QByteArray>("apres");
    QTest::newRow("cleRetiree") << QByteArray("[A]\nx=1\ny=2\n") << "X" << QByteArray("[A]\ny=2\n");
    QTest::newRow("cleAbsenteRienNeChange")
        << QByteArray("[A]\nx=1\n") << "z" << QByteArray("[A]\nx=1\n");
}

void TestFichierProfil::effacerDansTexte() {
    QFETCH(QByteArray, avant);
    QFETCH(QString, cle);
    QFETCH(QByteArray, apres);
    const auto resultat = FichierProfil::EffacerDansTexte(avant, "a", cle);
    QVERIFY(resultat.has_value());
    QCOMPARE(*resultat, apres);
}

QTEST_GUILESS_MAIN(TestFichierProfil)
#include "test_fichierprofil.moc"
