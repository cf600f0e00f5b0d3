// Lecture d'un FEC venu d'ailleurs : le fichier que Maroval écrit se relit sans refus ; les
// deux séparateurs, les deux codages, la marque d'ordre, les colonnes Montant / Sens ; puis
// chaque refus, avec le numéro de sa ligne.
#include "fec/LectureFec.h"

#include <QtTest>

namespace {

const QByteArray Entete =
    "JournalCode\tJournalLib\tEcritureNum\tEcritureDate\tCompteNum\tCompteLib\tCompAuxNum\t"
    "CompAuxLib\tPieceRef\tPieceDate\tEcritureLib\tDebit\tCredit\tEcritureLet\tDateLet\t"
    "ValidDate\tMontantdevise\tIdevise";

QByteArray Ligne(const char* journal, const char* num, const char* date, const char* compte,
                 const char* lib, const char* debit, const char* credit, const char* aux = "") {
    return QByteArray(journal) + "\tJournal\t" + num + "\t" + date + "\t" + compte + "\tCompte\t" +
           aux + "\t\t" + num + "\t" + date + "\t" + lib + "\t" + debit + "\t" + credit + "\t\t\t" +
           date + "\t\t";
}

// Un petit fichier correct : à-nouveaux, une vente, un règlement.
QByteArray Correct() {
    return Entete + "\r\n" + Ligne("AN", "1", "20240101", "512", "A nouveaux", "1000,00", "0,00") +
           "\r\n" + Ligne("AN", "1", "20240101", "101", "A nouveaux", "0,00", "1000,00") + "\r\n" +
           Ligne("VE", "2", "20240205", "411", "Facture été", "120,00", "0,00", "CLI001") + "\r\n" +
           Ligne("VE", "2", "20240205", "706", "Facture été", "0,00", "100,00") + "\r\n" +
           Ligne("VE", "2", "20240205", "44571", "Facture été", "0,00", "20,00") + "\r\n" +
           Ligne("BQ", "3", "20240320", "512", "Règlement", "120.00", "0") + "\r\n" +
           Ligne("BQ", "3", "20240320", "411", "Règlement", "0", "120", "CLI001");
}

} // namespace

class TestFecLecture : public QObject {
    Q_OBJECT
private slots:
    void fichierCorrect_lu() {
        const fec::FichierLu f = fec::LireFec(Correct());
        QCOMPARE(f.refus, QStringList());
        QCOMPARE(f.lignes, 7);
        QCOMPARE(f.ecritures.size(), std::size_t(3));
        QCOMPARE(f.ecritures[0].journalCode, QStringLiteral("AN"));
        QCOMPARE(f.ecritures[1].lignes.size(), std::size_t(3));
        QCOMPARE(f.ecritures[1].lignes[0].compAuxNum, QStringLiteral("CLI001"));
        QCOMPARE(f.ecritures[1].lignes[0].ecritureLib, QStringLiteral("Facture été"));
        QCOMPARE(f.ecritures[2].lignes[0].debit, Montant::depuisUnites(120));
        QCOMPARE(f.ecritures[2].lignes[1].ligne, 8);
        QCOMPARE(f.premierJour, QStringLiteral("20240101"));
        QCOMPARE(f.dernierJour, QStringLiteral("20240320"));
    }

    void barreVerticale_BOM_et_Latin9() {
        QByteArray barre = Correct();
        barre.replace('\t', '|');
        QCOMPARE(fec::LireFec(barre).refus, QStringList());
        QCOMPARE(fec::LireFec(barre).lignes, 7);
        QCOMPARE(fec::LireFec("\xEF\xBB\xBF" + Correct()).ecritures[1].lignes[0].ecritureLib,
                 QStringLiteral("Facture été"));
        // ISO 8859-15 : é = E9, € = A4, œ = BD.
        QByteArray latin = Correct();
        latin.replace("Facture \xC3\xA9t\xC3\xA9", "Facture \xE9t\xE9 \xA4 \xBD");
        latin.replace("R\xC3\xA8glement", "R\xE8glement");
        const fec::FichierLu f = fec::LireFec(latin);
        QCOMPARE(f.refus, QStringList());
        QCOMPARE(f.ecritures[1].lignes[0].ecritureLib, QStringLiteral("Facture été € œ"));
        QCOMPARE(f.ecritures[2].lignes[0].ecritureLib, QStringLiteral("Règlement"));
    }

    void montantEtSens() {
        QByteArray f = Correct();
        QList<QByteArray> lignes = f.split('\n');
        QByteArray sortie = QByteArray(Entete).replace("Debit\tCredit", "Montant\tSens") + "\r\n";
        for (int i = 1; i < lignes.size(); ++i) {
            QList<QByteArray> c = lignes[i].trimmed().split('\t');
            while (c.size() < 18)
                c << QByteArray();
            const bool debit = c[11] != "0,00" && c[11] != "0";
            const QByteArray montant = debit ? c[11] : c[12];
            c[11] = montant;
            c[12] = debit ? "D" : "C";
            sortie += c.join('\t') + "\r\n";
        }
        const fec::FichierLu lu = fec::LireFec(sortie);
        QCOMPARE(lu.refus, QStringList());
        QCOMPARE(lu.ecritures[1].lignes[1].credit, Montant::depuisUnites(100));
        QCOMPARE(lu.ecritures[1].lignes[0].debit, Montant::depuisUnites(120));
    }

    void refus_separateurInconnu() {
        const fec::FichierLu f = fec::LireFec("JournalCode;JournalLib\r\nVE;Ventes");
        QCOMPARE(f.refus, QStringList{"Ligne 1 : séparateur inconnu (le fichier doit séparer ses "
                                      "champs par une tabulation ou par « | »)."});
    }

    void refus_champManquant() {
        QByteArray f = Correct();
        f.replace("PieceRef", "Piece");
        QCOMPARE(fec::LireFec(f).refus, QStringList{"Ligne 1 : il manque le champ PieceRef."});
    }

    void refus_nombreDeChamps() {
        const QByteArray f = Correct() + "\r\nVE\tJournal\t4\t20240321\t512";
        QCOMPARE(fec::LireFec(f).refus, QStringList{"Ligne 9 : 5 champs au lieu de 18."});
    }

    void refus_dateIllisible() {
        QByteArray f = Correct();
        f.replace("20240320\t512", "2024-03-20\t512");
        const QStringList refus = fec::LireFec(f).refus;
        QVERIFY(refus.contains("Ligne 7 : la date « 2024-03-20 » du champ EcritureDate n'est pas "
                               "une date AAAAMMJJ."));
        QCOMPARE(
            fec::LireFec(QByteArray(Correct()).replace("\t20240205\t44571", "\t20240230\t44571"))
                .refus.value(0),
            QStringLiteral("Ligne 6 : la date « 20240230 » du champ EcritureDate n'est pas une "
                           "date AAAAMMJJ."));
    }

    void refus_montantIllisible() {
        QByteArray f = Correct();
        f.replace("\t120.00\t", "\t1 200,00\t");
        QCOMPARE(fec::LireFec(f).refus.value(0),
                 QStringLiteral("Ligne 7 : le montant « 1 200,00 » du champ Debit est illisible."));
    }

    void refus_ecritureDesequilibree() {
        QByteArray f = Correct();
        f.replace("\t0,00\t20,00\t", "\t0,00\t21,00\t");
        QCOMPARE(fec::LireFec(f).refus,
                 QStringList{"Lignes 4 à 6 : l'écriture 2 du journal VE n'est pas équilibrée "
                             "(débits 120,00, crédits 121,00)."});
    }

    void refus_horsDUnExercice() {
        const QByteArray f = Correct() + "\r\n" +
                             Ligne("OD", "9", "20250102", "512", "Frais", "5,00", "0,00") + "\r\n" +
                             Ligne("OD", "9", "20250102", "627", "Frais", "0,00", "5,00");
        QCOMPARE(fec::LireFec(f).refus,
                 QStringList{"Ligne 9 : la date 02/01/2025 tombe hors d'un exercice de douze mois "
                             "commencé le 01/01/2024."});
    }

    void refus_fichierVideEtLigneVide() {
        QCOMPARE(fec::LireFec("").refus, QStringList{"Le fichier est vide."});
        QByteArray f = Correct();
        f.replace("\r\nBQ\tJournal\t3\t20240320\t512", "\r\n\r\nBQ\tJournal\t3\t20240320\t512");
        QCOMPARE(fec::LireFec(f).refus.value(0), QStringLiteral("Ligne 7 : ligne vide."));
    }
};

QTEST_GUILESS_MAIN(TestFecLecture)
#include "test_fec_lecture.moc"
