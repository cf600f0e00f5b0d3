// Chaque écran de Maroval, ouvert dans une société générée (une année de 3 000 lignes),
// photographié en PNG : pour regarder le programme d'un coup d'œil, et pour le README.
// Une boîte qui s'ouvre en chemin est photographiée à son tour puis fermée par son bouton
// par défaut. Usage : maroval-captures [dossier] (par défaut « captures »).

#include "Generateur.h"
#include "analytic/Analy0.h"
#include "analytic/Analy1.h"
#include "analytic/Analy2.h"
#include "backup/Backup.h"
#include "backup/Restaure.h"
#include "backup/Sauve.h"
#include "budget/Budget00.h"
#include "budget/Budget04.h"
#include "budget/ControleDetaille.h"
#include "budget/SaisieBudget.h"
#include "chart/ModifLibCpt.h"
#include "chart/Plan2.h"
#include "chart/Prembil.h"
#include "companies/APropos.h"
#include "companies/CreSociete.h"
#include "companies/General.h"
#include "companies/Options.h"
#include "companies/Societe.h"
#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
#include "consultation/Bilan.h"
#include "consultation/ConsCpt.h"
#include "consultation/Consult.h"
#include "consultation/Journal.h"
#include "consultation/Resultat.h"
#include "entry/Annul.h"
#include "entry/Choisais.h"
#include "entry/ModifLib.h"
#include "entry/SaisDC.h"
#include "entry/Saislog.h"
#include "fec/ExportFEC.h"
#include "fec/ImportFEC.h"
#include "fiscal/Fiscalite.h"
#include "reports/Editions.h"
#include "session/Session.h"
#include "store/Routines.h"
#include "treasury/Previsions.h"
#include "treasury/Rappr.h"
#include "treasury/Tresor00.h"
#include "treasury/Tresor01.h"
#include "treasury/Tresor02.h"
#include "treasury/Tresor05.h"
#include "ui/Aide.h"
#include "ui/Application.h"
#include "ui/Dialogues.h"
#include "yearend/Cloture.h"

#include <QAbstractButton>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDir>
#include <QElapsedTimer>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <cstdio>
#include <functional>

namespace {

QString g_dossier;
int g_rang = 0;

void Attendre(int ms) {
    QElapsedTimer chrono;
    chrono.start();
    while (chrono.elapsed() < ms)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

bool Photographier(QWidget* w, const QString& nom) {
    const QString chemin = QDir(g_dossier).filePath(
        QStringLiteral("%1-%2.png").arg(++g_rang, 2, 10, QLatin1Char('0')).arg(nom));
    const bool ok = w->grab().save(chemin);
    std::printf("%s : %s\n", qPrintable(nom), ok ? qPrintable(chemin) : "ÉCHEC");
    return ok;
}

// Les boîtes qui s'ouvrent pendant une capture : photographiées puis fermées.
void GuetterBoites(const QString& ecran) {
    QWidget* modale = QApplication::activeModalWidget();
    auto* boite = qobject_cast<QMessageBox*>(modale);
    if (!boite) return;
    Photographier(boite, ecran + QStringLiteral("-boite"));
    if (QAbstractButton* b = boite->defaultButton())
        b->click();
    else
        boite->reject();
}

// L'écran de type T, montré au-dessus de parent ; preparer fait ce qu'un utilisateur ferait
// d'abord (choisir une ligne) pour que la capture montre l'écran en usage.
template <class T> void Capturer(QWidget* parent, const std::function<void(T*)>& preparer = {}) {
    const QString nom = QString::fromLatin1(T::staticMetaObject.className()).section(u':', -1);
    QTimer guet;
    QObject::connect(&guet, &QTimer::timeout, [&] { GuetterBoites(nom); });
    guet.start(50);
    T* e = new T(parent);
    e->show();
    Attendre(250);
    if (preparer) {
        preparer(e);
        Attendre(150);
    }
    Photographier(e, e->objectName().isEmpty() ? nom : e->objectName());
    e->hide();
    delete e;
    Attendre(20);
}

} // namespace

int main(int argc, char** argv) {
    ui::Application application(argc, argv);
    g_dossier = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("captures");
    QDir().mkpath(g_dossier);

    QTemporaryDir donnees;
    generateur::GenererPuisOuvrir(donnees.path(), 3000, 25, 8);
    Session& s = session();
    s.DateSaisieCourante = QStringLiteral("31/12/2024");
    s.NomSocCourante = QStringLiteral("Boulangerie Martin");
    table::Societe societe;
    if (LireSociete(s.NumSocCourante, societe)) {
        societe.Nom = s.NomSocCourante;
        MajSociete(s.NumSocCourante, societe);
    }

    ecran::MontrerGeneral();
    ecran::General* general = ecran::General::Instance();
    general->resize(900, 560);
    general->FixerLibelle(QStringLiteral("LBSociete"), s.NomSocCourante);
    general->FixerLibelle(QStringLiteral("LBExercice"), QStringLiteral("2024"));
    general->FixerLibelle(QStringLiteral("LBDateExo"), QStringLiteral("01/01/2024 au 31/12/2024"));
    general->FixerLibelle(QStringLiteral("LBDateSaisie"), s.DateSaisieCourante);
    Attendre(300);
    Photographier(general, QStringLiteral("General"));

    using namespace ecran;
    Capturer<Societe>(general);
    s.ModeCreSociete = 1;
    Capturer<CreSociete>(general);
    Capturer<Options>(general);
    Capturer<APropos>(general);
    Capturer<Plan2>(general);
    Capturer<Prembil>(general);
    Capturer<Choisais>(general);
    Capturer<Saislog>(general, [](Saislog* e) {
        // « Factures des clients », puis sa première ligne.
        for (const char* nom : {"List1", "List2"}) {
            auto* liste = e->findChild<QListWidget*>(QString::fromLatin1(nom));
            if (!liste || liste->count() == 0) return;
            liste->setCurrentRow(0);
            emit liste->itemClicked(liste->item(0));
            Attendre(50);
        }
    });
    Capturer<SaisDC>(general);
    Capturer<Annul>(general);
    Capturer<ModifLib>(general);
    Capturer<Consult>(general);
    Capturer<Journal>(general);
    Capturer<Balance>(general);
    Capturer<Bilan>(general);
    Capturer<Resultat>(general);
    Capturer<ConsCpt>(general);
    Capturer<BilGraph>(general);
    Capturer<Editions>(general);
    Capturer<Rappr>(general);
    Capturer<Tresor00>(general);
    Capturer<Tresor01>(general);
    Capturer<Tresor02>(general);
    Capturer<Tresor03>(general);
    Capturer<Tresor04>(general);
    Capturer<Tresor05>(general);
    Capturer<Budget00>(general);
    Capturer<Budget01>(general);
    Capturer<budget03>(general);
    Capturer<Budget04>(general);
    Capturer<Analy0>(general);
    Capturer<Analy1>(general);
    Capturer<Analy2>(general);
    Capturer<Cloture>(general);
    Capturer<Fiscalite>(general);
    Capturer<ExportFEC>(general);
    Capturer<ImportFEC>(general);
    Capturer<Backup>(general);
    Capturer<Sauve>(general);
    Capturer<Restaure>(general);

    ui::AfficherAideIndex();
    Attendre(300);
    if (QDialog* aide = ui::FenetreAide()) {
        aide->resize(720, 600);
        Attendre(100);
        Photographier(aide, QStringLiteral("Aide"));
    }
    ecran::FermerGeneral();
    std::printf("Captures : %d images dans %s\n", g_rang,
                qPrintable(QDir(g_dossier).absolutePath()));
    return 0;
}
