// Le peintre des états : mise en pages calculée sans dessin (aucune ligne perdue ni coupée,
// réserve des reports), puis un PDF relu par pdftotext : en-tête et titres des colonnes sur
// chaque page, « Page n / N », reports justes, libellés trop longs coupés, fichier jamais
// laissé à moitié.
#include "support/DossierEssai.h"
#include "support/Outils.h"

#include "reports/Document.h"
#include "reports/Peintre.h"
#include "ui/Application.h"

#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QtTest>

using namespace rapport;

namespace {

// Un grand livre d'essai : n lignes de détail, un compte tous les 40, débit et crédit reportés.
Document GrandLivre(int n) {
    Document d;
    d.titre = QStringLiteral("GRAND LIVRE");
    d.societe = QStringLiteral("Boulangerie Léa");
    d.debut = QStringLiteral("01/01/2024");
    d.fin = QStringLiteral("31/12/2024");
    d.dateSaisie = QStringLiteral("31/12/2024");
    d.version = QStringLiteral("Maroval Version 0.1.0");
    d.colonnes = {{QStringLiteral("N°"), 1, Alignement::Droite},
                  {QStringLiteral("Date"), 1.6, Alignement::Gauche},
                  {QStringLiteral("Libellé"), 5, Alignement::Gauche},
                  {QStringLiteral("Débit"), 2, Alignement::Droite, true},
                  {QStringLiteral("Crédit"), 2, Alignement::Droite, true}};
    for (int i = 1; i <= n; ++i) {
        if (i % 40 == 1)
            d.Ajouter(Genre::EnTeteGroupe,
                      {QString(), QString(), QStringLiteral("Compte 4110%1").arg(i / 40)});
        const Montant m = Montant::depuisCentimes(100 * i + 5);
        const bool debit = i % 2;
        d.Ajouter(Genre::Detail,
                  {QString::number(i), QStringLiteral("15/03/2024"),
                   QStringLiteral("Facture n°%1").arg(i), debit ? TexteMontant(m) : QString(),
                   debit ? QString() : TexteMontant(m)},
                  {debit ? m : Montant(), debit ? Montant() : m});
    }
    return d;
}

} // namespace

class TestPeintre : public QObject {
    Q_OBJECT
private slots:
    void miseEnPages_toutesLesLignesUneFoisEtDansLOrdre_data() {
        QTest::addColumn<int>("lignes");
        for (int n : {0, 1, 51, 52, 53, 104, 105, 1000})
            QTest::newRow(qPrintable(QString::number(n))) << n;
    }
    void miseEnPages_toutesLesLignesUneFoisEtDansLOrdre() {
        QFETCH(int, lignes);
        for (bool reports : {false, true}) {
            Document d = GrandLivre(0);
            if (!reports)
                for (Colonne& c : d.colonnes)
                    c.reportee = false;
            for (int i = 0; i < lignes; ++i)
                d.Ajouter(Genre::Detail, {QString::number(i)});
            const Gabarit g;
            const std::vector<Page> pages = MettreEnPages(d, g);
            QVERIFY(!pages.empty());
            std::size_t attendu = 0;
            for (std::size_t p = 0; p < pages.size(); ++p) {
                QCOMPARE(pages[p].debut, attendu);
                QVERIFY(pages[p].fin > pages[p].debut || lignes == 0);
                attendu = pages[p].fin;
                // Ce qui est posé tient dans la hauteur utile.
                const double utile = g.hauteur - 2 * g.marge - g.entete - g.titres - g.pied;
                const std::size_t posees = pages[p].fin - pages[p].debut +
                                           (pages[p].reportEnHaut ? 1 : 0) +
                                           (pages[p].aReporterEnBas ? 1 : 0);
                QVERIFY(posees * g.ligne <= utile + 1e-9);
                QCOMPARE(pages[p].reportEnHaut, reports && p > 0);
                QCOMPARE(pages[p].aReporterEnBas, reports && p + 1 < pages.size());
            }
            QCOMPARE(attendu, std::size_t(lignes));
        }
        // 52 lignes tiennent sur une page sans reports, 51 avec la réserve du report.
        Document d;
        for (int i = 0; i < 52; ++i)
            d.Ajouter(Genre::Detail, {});
        QCOMPARE(MettreEnPages(d).size(), std::size_t(1));
        d.Ajouter(Genre::Detail, {});
        QCOMPARE(MettreEnPages(d).size(), std::size_t(2));
    }

    void pdf_enTetesPagesEtReports() {
        support::DossierEssai dossier;
        const Document d = GrandLivre(300);
        const QString chemin = dossier.Fichier("grand-livre.pdf");
        int pages = 0;
        QCOMPARE(EcrirePdf(d, chemin, QStringLiteral("23/11/2026"), &pages), QString());
        const std::vector<Page> prevues = MettreEnPages(d);
        QCOMPARE(pages, int(prevues.size()));
        const QStringList texte = essai::PagesPdf(chemin);
        QCOMPARE(texte.size(), pages);
        Montant debit;
        for (int p = 0; p < pages; ++p) {
            const QString& t = texte[p];
            QVERIFY2(t.contains(QStringLiteral("GRAND LIVRE")), qPrintable(t));
            QVERIFY(t.contains(QStringLiteral("Boulangerie Léa")));
            QVERIFY(t.contains(QStringLiteral("Exercice du 01/01/2024 au 31/12/2024")));
            QVERIFY(t.contains(QStringLiteral("Edité le 23/11/2026")));
            QVERIFY(t.contains(QRegularExpression(QStringLiteral("Libellé\\s+Débit\\s+Crédit"))));
            QVERIFY2(t.contains(QStringLiteral("Page %1 / %2").arg(p + 1).arg(pages)),
                     qPrintable(t));
            QCOMPARE(t.contains(QStringLiteral("A reporter")), p + 1 < pages);
            QCOMPARE(t.contains(QRegularExpression(QStringLiteral("\\bReport\\b"))), p > 0);
            for (std::size_t i = prevues[p].debut; i < prevues[p].fin; ++i)
                if (!d.lignes[i].reportes.isEmpty()) debit += d.lignes[i].reportes[0];
            // Le débit à reporter est la somme des débits jusqu'au bas de cette page.
            if (p + 1 < pages) {
                const QRegularExpression a(QStringLiteral("A reporter\\s+([0-9 ]+,\\d\\d)"));
                const auto m = a.match(t);
                QVERIFY2(m.hasMatch(), qPrintable(t));
                QCOMPARE(m.captured(1), TexteMontant(debit));
            }
        }
        // Chaque ligne de détail se retrouve, une fois.
        const QString tout = texte.join('\n');
        for (int i : {1, 2, 51, 52, 150, 299, 300})
            QCOMPARE(tout.count(QRegularExpression(QStringLiteral("Facture n°%1\\b").arg(i))), 1);
    }

    // Le chemin de l'imprimante (celui de l'aperçu et du travail d'impression) peint les mêmes
    // pages : ici une imprimante qui écrit dans un fichier.
    void imprimante_memesPagesQuEnPdf() {
        support::DossierEssai dossier;
        const Document d = GrandLivre(120);
        const QString chemin = dossier.Fichier("imprimante.pdf");
        QPrinter imprimante(QPrinter::HighResolution);
        imprimante.setOutputFormat(QPrinter::PdfFormat);
        imprimante.setOutputFileName(chemin);
        const int pages = Peindre(d, imprimante, QStringLiteral("23/11/2026"));
        QCOMPARE(pages, int(MettreEnPages(d).size()));
        const QStringList texte = essai::PagesPdf(chemin);
        QCOMPARE(texte.size(), pages);
        QVERIFY(texte.last().contains(QStringLiteral("Page %1 / %1").arg(pages)));
        QVERIFY(texte.first().contains(QStringLiteral("GRAND LIVRE")));
    }

    void libelleTropLong_coupe() {
        support::DossierEssai dossier;
        Document d = GrandLivre(0);
        const QString long_ =
            QStringLiteral("Règlement ") + QString(200, QChar('x')) + QStringLiteral(" FIN");
        d.Ajouter(Genre::Detail, {QStringLiteral("1"), QStringLiteral("02/01/2024"), long_,
                                  TexteMontant(Montant::depuisCentimes(123456789))});
        const QString chemin = dossier.Fichier("long.pdf");
        QCOMPARE(EcrirePdf(d, chemin, QStringLiteral("23/11/2026")), QString());
        const QString t = essai::PagesPdf(chemin).value(0);
        QVERIFY(t.contains(QStringLiteral("Règlement xxx")));
        QVERIFY(!t.contains(QStringLiteral(" FIN")));
        QVERIFY(t.contains(QStringLiteral("…")));
        QVERIFY(t.contains(QStringLiteral("1 234 567,89")));
    }

    void documentVide_unePage() {
        support::DossierEssai dossier;
        Document d = GrandLivre(0);
        const QString chemin = dossier.Fichier("vide.pdf");
        int pages = 0;
        QCOMPARE(EcrirePdf(d, chemin, QStringLiteral("23/11/2026"), &pages), QString());
        QCOMPARE(pages, 1);
        QVERIFY(essai::PagesPdf(chemin).value(0).contains(QStringLiteral("Page 1 / 1")));
    }

    // Un dossier où l'on ne peut écrire : le message, aucun fichier ; un arrêt demandé en
    // route ne laisse pas de PDF à moitié, l'ancien fichier reste.
    void echecsEtArret_aucunFichierAMoitie() {
        support::DossierEssai dossier;
        const Document d = GrandLivre(500);
        const QString refus = EcrirePdf(d, QStringLiteral("/proc/etat.pdf"), QStringLiteral("x"));
        QVERIFY2(refus.startsWith(QStringLiteral("Le fichier « /proc/etat.pdf » ne peut pas être "
                                                 "écrit : ")),
                 qPrintable(refus));
        const QString chemin = dossier.Fichier("arret.pdf");
        QFile ancien(chemin);
        QVERIFY(ancien.open(QIODevice::WriteOnly));
        ancien.write("ancien");
        ancien.close();
        int pages = 0;
        const QString arret = EcrirePdf(d, chemin, QStringLiteral("x"), &pages,
                                        [](int page, int) { return page < 3; });
        QCOMPARE(arret, QStringLiteral("L'impression est annulée."));
        QCOMPARE(pages, 3);
        QVERIFY(ancien.open(QIODevice::ReadOnly));
        QCOMPARE(ancien.readAll(), QByteArray("ancien"));
    }
};

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    TestPeintre test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_peintre.moc"
