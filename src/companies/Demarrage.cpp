#include "companies/Demarrage.h"

#include "backup/Recup.h"
#include "backup/Restauration.h"
#include "base/Durable.h"
#include "base/Reglages.h"
#include "base/Valeur.h"
#include "companies/General.h"
#include "fec/RepriseFec.h"
#include "posting/Securite.h"
#include "session/FichierProfil.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/ControleBase.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Fin.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QStandardPaths>
#include <memory>

namespace {

// Verrou du dossier des données : deux Maroval sur la même base fausseraient les cumuls.
std::unique_ptr<QLockFile> g_verrou;

bool VerrouillerDossier(const QString& dossier) {
    g_verrou = std::make_unique<QLockFile>(QDir(dossier).filePath(QStringLiteral("maroval.lck")));
    g_verrou->setStaleLockTime(0);
    if (g_verrou->tryLock(0)) return true;
    g_verrou.reset();
    ui::Boite(QStringLiteral("Maroval est déjà ouvert sur ces données.\n\n"
                             "Un seul Maroval à la fois peut travailler sur une même "
                             "comptabilité : utilisez la fenêtre déjà ouverte."),
              QStringLiteral("Maroval"), ui::Icone::Exclamation);
    return false;
}

// Premier démarrage : le fichier de configuration par défaut est installé, jamais écrasé.
void InstallerConfiguration(const QString& dossier) {
    const QString ini = QDir(dossier).filePath(QStringLiteral("maroval.ini"));
    if (QFileInfo::exists(ini)) return;
    QFile modele(QStringLiteral(":/data/maroval.ini"));
    if (!modele.open(QIODevice::ReadOnly)) return;
    const QByteArray contenu = modele.readAll();
    QFile f(ini);
    if (f.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
        f.write(contenu);
        f.flush();
    }
}

// Le réglage propre au programme seul : Linux n'a pas de profil régional à corriger, et les
// montants se tapent avec la virgule quelle que soit la langue de la machine. Absent, il
// vaut "0", que le contrôle tient pour juste.
QString SymboleDecimal() {
    return LireReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"), QStringLiteral("0"))
        .left(1);
}

} // namespace

EcransDemarrage EcransParDefaut() {
    // Les écrans réels du démarrage ; les tests les remplacent pour observer l'ordre.
    EcransDemarrage e;
    e.MontrerRecup = ecran::MontrerRecup;
    e.MontrerGeneral = ecran::MontrerGeneral;
    e.MontrerSociete = ecran::MontrerSociete;
    return e;
}

EcransDemarrage& ecransDemarrage() {
    static EcransDemarrage e = EcransParDefaut();
    return e;
}

QString DossierDonneesParDefaut() {
    const QString env = qEnvironmentVariable("MAROVAL_DONNEES");
    if (!env.isEmpty()) return QDir::cleanPath(env);
    return QDir(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation))
        .filePath(QStringLiteral("Maroval"));
}

void LireConfiguration() {
    Session& s = session();
    FichierProfil ini(CheminIni());
    s.ModeDebug = ValeurNumerique(ini.Lire(QStringLiteral("Controle"), QStringLiteral("Debug"),
                                           QStringLiteral("0"))) != 0;
    s.SymboleMonnaie =
        ini.Lire(QStringLiteral("Options"), QStringLiteral("SymbEu"), QStringLiteral("E"));
    s.TauxConversion = 1;
    MajFormatMontant(static_cast<int>(ValeurNumerique(
        ini.Lire(QStringLiteral("Options"), QStringLiteral("NbDecimales"), QStringLiteral("2")))));
}

bool ControleSymboleDecimal() {
    const auto correct = [](const QString& s) {
        return s.isEmpty() || s == QStringLiteral(",") || s == QStringLiteral("0");
    };
    const QString symbole = SymboleDecimal();
    if (correct(symbole)) return true;
    const QString question =
        QStringLiteral("Le symbole décimal configuré sur votre machine n'est pas une virgule\n"
                       "et il ne permettra pas la saisie des montants à virgule dans Maroval. \n"
                       "\n"
                       "Maroval peut remplacer votre symbole décimal actuel (%1) par une virgule.\n"
                       "\n"
                       "Cliquez [Oui] pour modifier ce symbole automatiquement.")
            .arg(symbole);
    if (ui::Boite(question, QStringLiteral("Attention"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Oui) {
        EcrireReglage(QStringLiteral("intl"), QStringLiteral("sDecimal"), QStringLiteral(","));
        ui::Boite(QStringLiteral("Votre PC doit être redémarré pour que cette modification soit "
                                 "prise en compte par Windows.\nCliquez OK et redémarrez votre "
                                 "machine."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return false;
    }
    if (!correct(SymboleDecimal()))
        ui::Boite(QStringLiteral("Pour modifier votre symbole décimal :\n"
                                 "Sous Windows 95 ou 98 :\n"
                                 "allez dans le menu Démarrer/Paramètres/Panneau de configuration\n"
                                 "cliquez sur l'icône \"Paramètres régionaux\" puis \"Nombres\""),
                  QStringLiteral("Maroval"), ui::Icone::Information);
    return true;
}

void DeciderMarqueur() {
    FichierProfil ini(CheminIni());
    const QString lu =
        ini.Lire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"));
    const double marqueur = ValeurNumerique(lu);
    if (marqueur == 0) {
        PurgerCleTemporaire();
    } else if (marqueur == 1) {
        ui::Boite(QStringLiteral("Votre dernière session Maroval s'est terminee anormalement "
                                 "pendant l'enregistrement de votre derniere ecriture.\n\n"
                                 "Cette derniere ecriture n'a pas ete memorisee, veuillez la "
                                 "re-saisir.\n\n"
                                 "Le reste de votre comptabilité n'a pas été affecté par cet "
                                 "arrêt brutal."),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);
        ini.Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"));
        PurgerCleTemporaire();
    } else if (marqueur == 2) {
        if (ecransDemarrage().MontrerRecup) ecransDemarrage().MontrerRecup();
        if (ui::FinDemandee()) return;
        ini.Ecrire(QStringLiteral("Securite"), QStringLiteral("Erreur"), QStringLiteral("0"));
    }
    // Toute autre valeur : ni message ni purge.
}

bool Demarrage(const QStringList& arguments) {
    QCoreApplication::setOrganizationName(QStringLiteral("Maroval"));
    QCoreApplication::setApplicationName(QStringLiteral("Maroval"));
    Session& s = session();
    // Ligne de commande sans le nom du programme : rien, ou une archive .sav à restaurer.
    s.LigneCommande = arguments.mid(1).join(QLatin1Char(' '));

    // Dossier du programme, retenu dans les réglages au premier lancement.
    const QString programme = QCoreApplication::applicationDirPath();
    const QString chemin =
        LireReglage(QStringLiteral("Maroval"), QStringLiteral("Path"), QStringLiteral("0"));
    if (chemin.isEmpty() || chemin == QStringLiteral("0"))
        EcrireReglage(QStringLiteral("Maroval"), QStringLiteral("Path"), programme);
    s.DossierProgramme = programme;
    s.DossierDonnees = programme;

    // Dossier des données : créé au premier lancement avec une configuration par défaut.
    const QString donnees = DossierDonneesParDefaut();
    if (!QDir().mkpath(donnees)) {
        ui::Boite(
            QStringLiteral("Maroval ne peut pas créer son dossier de données :\n%1").arg(donnees),
            QStringLiteral("Maroval"), ui::Icone::Critique);
        ui::TerminerProgramme(1);
    }
    // Essayé avant toute saisie : mieux vaut le dire maintenant qu'à la première écriture.
    const QString refus = EssayerEcriture(donnees);
    if (!refus.isEmpty()) {
        ui::Boite(QStringLiteral("Maroval ne peut pas écrire dans son dossier de données :\n\n"
                                 "%1\n\n(%2)\n\nAucune écriture ne pourrait y être "
                                 "enregistrée. Vérifiez que le disque est branché, qu'il n'est "
                                 "ni plein ni protégé en écriture, puis relancez Maroval.")
                      .arg(QDir::toNativeSeparators(donnees), refus),
                  QStringLiteral("Maroval"), ui::Icone::Critique);
        ui::TerminerProgramme(1);
    }
    s.DossierDonnees = donnees;
    if (!VerrouillerDossier(donnees)) return false;
    InstallerConfiguration(donnees);

    LireConfiguration();

    if (!ControleSymboleDecimal()) return false;

    // Une base abîmée ou étrangère n'est jamais ouverte en écriture : on propose la reprise.
    const QString base = QDir(donnees).filePath(QStringLiteral("maroval.mdb"));
    const DiagnosticBase diagnostic = ControlerBase(base);
    if (diagnostic.etat == EtatBase::Endommagee || diagnostic.etat == EtatBase::Etrangere)
        ProposerReprise(base, diagnostic);

    OuvrirBase(donnees);
    ViderJourCent();
    QCoreApplication::processEvents();

    EcransDemarrage& e = ecransDemarrage();
    if (e.MontrerGeneral) e.MontrerGeneral();

    DeciderMarqueur();
    if (ui::FinDemandee()) return false;
    for (const QString& nom : fec::RetirerReprisesInterrompues())
        ui::Boite(QStringLiteral("La reprise de la comptabilité « %1 » depuis un fichier des "
                                 "écritures comptables a été interrompue.\n\nCette société, "
                                 "incomplète, a été retirée : recommencez la reprise.")
                      .arg(nom),
                  QStringLiteral("Maroval"), ui::Icone::Exclamation);

    if (e.MontrerSociete) e.MontrerSociete();
    return !ui::FinDemandee();
}

void LibererDossierDonnees() {
    g_verrou.reset();
}
