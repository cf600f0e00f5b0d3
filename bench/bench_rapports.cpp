// Le peintre des états : un grand livre de 5 000 puis 50 000 lignes écrit en PDF, lignes par
// seconde, rapport des temps (linéaire si proche de 10), pages et taille du fichier ; et la
// page 1 en PNG (pdftoppm -r 60) pour la regarder.
#include "reports/Catalogue.h"
#include "reports/Document.h"
#include "reports/DonneesEtats.h"
#include "reports/Peintre.h"
#include "session/Session.h"
#include "store/Base.h"
#include "ui/Application.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <cstdio>

#include "Generateur.h"

using namespace rapport;

namespace {

Document GrandLivre(int n) {
    Document d;
    d.titre = QStringLiteral("GRAND LIVRE");
    d.societe = QStringLiteral("Boulangerie Léa");
    d.debut = QStringLiteral("01/01/2024");
    d.fin = QStringLiteral("31/12/2024");
    d.dateSaisie = QStringLiteral("31/12/2024");
    d.version = QStringLiteral("Maroval Version 0.1.0");
    d.colonnes = {{QStringLiteral("N°"), 1, Alignement::Droite},
                  {QStringLiteral("Date"), 1.5, Alignement::Gauche},
                  {QStringLiteral("Jnl"), 0.6, Alignement::Centre},
                  {QStringLiteral("Libellé"), 5, Alignement::Gauche},
                  {QStringLiteral("Débit"), 2, Alignement::Droite, true},
                  {QStringLiteral("Crédit"), 2, Alignement::Droite, true},
                  {QStringLiteral("Solde"), 2, Alignement::Droite}};
    Montant solde;
    for (int i = 1; i <= n; ++i) {
        if (i % 60 == 1) {
            if (i > 1) d.Ajouter(Genre::Blanc, {});
            d.Ajouter(Genre::EnTeteGroupe, {QString(), QString(), QString(),
                                            QStringLiteral("411%1 Client n°%1").arg(i / 60)});
        }
        const Montant m = Montant::depuisCentimes(1000 + (i * 7919) % 250000);
        const bool debit = i % 3 != 0;
        solde += debit ? m : -m;
        d.Ajouter(Genre::Detail,
                  {QString::number(i),
                   QStringLiteral("%1/%2/2024")
                       .arg(1 + i % 28, 2, 10, QChar('0'))
                       .arg(1 + i % 12, 2, 10, QChar('0')),
                   debit ? QStringLiteral("V") : QStringLiteral("T"),
                   QStringLiteral("Facture de pain et viennoiseries n°%1").arg(i),
                   debit ? TexteMontant(m) : QString(), debit ? QString() : TexteMontant(m),
                   TexteMontant(solde)},
                  {debit ? m : Montant(), debit ? Montant() : m});
    }
    return d;
}

struct Mesure {
    double ms = 0;
    int pages = 0;
    qint64 octets = 0;
};

Mesure Ecrire(int lignes, const QString& chemin) {
    const Document d = GrandLivre(lignes);
    QElapsedTimer chrono;
    chrono.start();
    Mesure m;
    const QString erreur = EcrirePdf(d, chemin, QStringLiteral("23/11/2026"), &m.pages);
    m.ms = static_cast<double>(chrono.nsecsElapsed()) / 1e6;
    if (!erreur.isEmpty()) std::printf("ERREUR : %s\n", qPrintable(erreur));
    m.octets = QFileInfo(chemin).size();
    return m;
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    ui::Application application(argc, argv);
    QTemporaryDir dossier;
    const Mesure petit = Ecrire(5000, dossier.filePath("gl5k.pdf"));
    const Mesure grand = Ecrire(50000, dossier.filePath("gl50k.pdf"));
    std::printf("Grand livre de 5 000 lignes en PDF : %.0f ms (%d pages)\n", petit.ms, petit.pages);
    std::printf("Grand livre de 50 000 lignes en PDF : %.0f ms (%d pages, %.1f Mo)\n", grand.ms,
                grand.pages, static_cast<double>(grand.octets) / (1024.0 * 1024.0));
    std::printf("Lignes par seconde (50 000 lignes) : %.0f lignes/s\n",
                50000.0 / (grand.ms / 1000));
    std::printf("Rapport des temps 50 000 / 5 000 : %.2f\n", grand.ms / petit.ms);

    // Le grand livre d'une comptabilité générée, lu dans la base puis écrit en PDF.
    for (int lignes : {5000, 50000}) {
        generateur::Options options;
        options.dossier = dossier.filePath(QStringLiteral("base%1").arg(lignes));
        options.lignesVisees = lignes;
        generateur::Generer(options);
        generateur::OuvrirGenere(options.dossier);
        QElapsedTimer chrono;
        chrono.start();
        // Comme à l'ouverture des éditions : l'exercice copié dans la base d'extraction.
        etats::ExtraireExercice(session().DossierDonnees, CleCourante());
        std::printf("Extraction de l'exercice de %d lignes : %.0f ms\n", lignes,
                    static_cast<double>(chrono.nsecsElapsed()) / 1e6);
        chrono.restart();
        const Document d = EtatGrandLivre(QString());
        const double modele = static_cast<double>(chrono.nsecsElapsed()) / 1e6;
        chrono.restart();
        int pages = 0;
        const QString pdf = dossier.filePath(QStringLiteral("livre%1.pdf").arg(lignes));
        EcrirePdf(d, pdf, QStringLiteral("23/11/2026"), &pages);
        const double ecriture = static_cast<double>(chrono.nsecsElapsed()) / 1e6;
        std::printf("Grand livre généré de %d lignes : modèle %.0f ms, PDF %.0f ms (%d pages, "
                    "%.1f Mo, %.0f lignes/s)\n",
                    lignes, modele, ecriture, pages,
                    static_cast<double>(QFileInfo(pdf).size()) / (1024.0 * 1024.0),
                    lignes / ((modele + ecriture) / 1000));
        if (lignes == 5000) {
            // Chaque état du catalogue sur la petite base, page 1 en PNG pour la regarder.
            const QString capture = qEnvironmentVariableIsSet("MAROVAL_CAPTURES")
                                        ? qEnvironmentVariable("MAROVAL_CAPTURES")
                                        : QStringLiteral(".");
            etats::RemplirJourCent(CleCourante(), session().NomsMois, {});
            const QList<std::pair<QString, Document>> etats = {
                {"balance", EtatBalance("G")},      {"balance-clients", EtatBalance("C")},
                {"journal", EtatJournal("*", 0)},   {"journal-ventes-mars", EtatJournal("V", 3)},
                {"centralisateur", EtatJourCent()}, {"plan", EtatPlan()}};
            for (const auto& [nom, etat] : etats) {
                const QString fichier = dossier.filePath(nom + ".pdf");
                EcrirePdf(etat, fichier, QStringLiteral("23/11/2026"));
                QProcess::execute(
                    QStringLiteral("pdftoppm"),
                    {"-r", "60", "-f", "1", "-l", "1", "-png", fichier, capture + "/etat-" + nom});
            }
            for (const char* code : {"B", "R"}) {
                etats::RemplirWbilan(CleCourante(), code);
                const QString nom = code == QLatin1String("B") ? "bilan" : "resultat";
                const QString fichier = dossier.filePath(nom + ".pdf");
                EcrirePdf(EtatResulBilan(code), fichier, QStringLiteral("23/11/2026"));
                QProcess::execute(
                    QStringLiteral("pdftoppm"),
                    {"-r", "60", "-f", "1", "-l", "1", "-png", fichier, capture + "/etat-" + nom});
            }
        }
        FermerBase();
    }
    // La page 1 en image, pour la regarder : $MAROVAL_CAPTURES ou le dossier courant.
    const QString sortie = qEnvironmentVariableIsSet("MAROVAL_CAPTURES")
                               ? qEnvironmentVariable("MAROVAL_CAPTURES") + "/grand-livre"
                               : QStringLiteral("grand-livre");
    QProcess::execute(QStringLiteral("pdftoppm"), {"-r", "60", "-f", "1", "-l", "1", "-png",
                                                   dossier.filePath("gl5k.pdf"), sortie});
    return 0;
}
