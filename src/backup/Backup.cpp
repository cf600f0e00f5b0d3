#include "backup/Backup.h"

#include "backup/ErreurSauvegarde.h"
#include "backup/Historique.h"
#include "backup/Restauration.h"
#include "backup/ZipBiblio.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Boite.h"
#include "ui/Dialogues.h"
#include "ui/Horloge.h"
#include "ui_Backup.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMouseEvent>
#include <QTimer>
#include <algorithm>
#include <cstdio>

namespace {

const QString Module = QStringLiteral("Backup");
const QString Oui = QStringLiteral("Oui");
const QString Non = QStringLiteral("Non");
enum Colonne { ColDate = 0, ColNombre = 1, ColFichier = 2, ColAccessible = 3 };

QString DeuxChiffres(int n) {
    return (QStringLiteral("00") + QString::number(n)).right(2);
}

QString Compte(int n, const QString& singulier, const QString& pluriel) {
    return QString::number(n) + (n == 1 ? singulier : pluriel);
}

// AAAAMMJJHHMMSS -> JJ/MM/AAAA HH:MM:SS, découpé par positions.
QString DateHistorique(const QString& d) {
    return d.mid(6, 2) + '/' + d.mid(4, 2) + '/' + d.mid(0, 4) + ' ' + d.mid(8, 2) + ':' +
           d.mid(10, 2) + ':' + d.mid(12, 2);
}

// Le fichier choisi serait remplacé par l'archive : jamais la base, la configuration ou
// l'historique eux-mêmes.
bool EstFichierDeMaroval(const QString& dossier, const QString& chemin) {
    const QString choisi = QFileInfo(chemin).canonicalFilePath();
    if (choisi.isEmpty()) return false; // fichier encore inexistant
    for (const char* nom : {"maroval.mdb", "maroval.ini", "history.xml"})
        if (QFileInfo(QDir(dossier).filePath(QString::fromLatin1(nom))).canonicalFilePath() ==
            choisi)
            return true;
    return false;
}

// Les deux entrées vont dans un fichier à part, mis à la place du fichier choisi d'un seul
// renommage : une sauvegarde manquée ne détruit jamais l'archive qu'elle devait remplacer.
bool FabriquerArchive(const QString& dossier, const QString& chemin) {
    const QString partiel = chemin + QStringLiteral(".partiel");
    QFile::remove(partiel);
    if (!BaseEnUnSeulFichier(dossier)) return false;
    try {
        Zipper(dossier, QStringLiteral("maroval.mdb"), partiel);
        Zipper(dossier, QStringLiteral("maroval.ini"), partiel);
    } catch (const ErreurSauvegarde&) {
        QFile::remove(partiel);
        return false;
    }
    if (std::rename(QFile::encodeName(partiel).constData(),
                    QFile::encodeName(chemin).constData()) != 0) {
        QFile::remove(partiel);
        return false;
    }
    SynchroniserDossier(QFileInfo(chemin).absolutePath());
    return true;
}

} // namespace

QString NomSauvegardeParDefaut() {
    const QDateTime t = ui::Maintenant();
    return QStringLiteral("maroval") + DeuxChiffres(t.date().day()) + '-' +
           DeuxChiffres(t.date().month()) + '-' + QString::number(t.date().year()) + '-' +
           DeuxChiffres(t.time().hour()) + 'h' + DeuxChiffres(t.time().minute()) +
           QStringLiteral(".sav");
}

QString FiltreSauvegarde() {
    return QStringLiteral("Sauvegarde (*.sav)|*.sav|Tous (*.*)|*.*");
}

void OuvrirBackup(QWidget* parent) {
    ecran::Backup ecran(parent);
    ecran.exec();
}

namespace ecran {

Backup::Backup(QWidget* parent) : ui::EcranModal(parent), formulaire(new Ui::Backup) {
    FixerContexteAide(21);
    formulaire->setupUi(this);
    ui::Grille* liste = formulaire->SftTree1;
    liste->FixerColonnes({QStringLiteral("\nDate"), QStringLiteral("\nNombre écritures"),
                          QStringLiteral("\nFichier"), QStringLiteral("\nAccessible")});
    liste->FixerMultiSelection(true);
    liste->FixerLargeurColonne(ColDate, 140);
    liste->FixerLargeurColonne(ColNombre, 130);
    liste->FixerLargeurColonne(ColFichier, 360);
    liste->FixerLargeurColonne(ColAccessible, 80);
    // Entrée dans la liste ne doit pas lancer une sauvegarde.
    for (QPushButton* b :
         {formulaire->Command1, formulaire->Command2, formulaire->Command3, formulaire->Command4})
        b->setAutoDefault(false);
    connect(formulaire->Command1, &QPushButton::clicked, this, &Backup::Command1_Click);
    connect(formulaire->Command2, &QPushButton::clicked, this, &Backup::Command2_Click);
    connect(formulaire->Command3, &QPushButton::clicked, this, &Backup::Command3_Click);
    connect(formulaire->Command4, &QPushButton::clicked, this, &Backup::Command4_Click);
    connect(liste, &ui::Grille::touche, this, &Backup::SftTree1_KeyDown);
    formulaire->Label2->installEventFilter(this);
    Form_Load();
}

Backup::~Backup() = default;

void Backup::Form_Load() {
    int ligne = 10;
    try {
        const int societes = CompterLignes("Societe");
        ligne = 20;
        const int exercices = CompterLignes("Constante");
        ligne = 30;
        const int ecritures = CompterLignes("Ecriture");
        ligne = 40;
        formulaire->Text1->setText(
            Compte(societes, QStringLiteral(" société"), QStringLiteral(" sociétés")));
        formulaire->Text2->setText(
            Compte(exercices, QStringLiteral(" exercice"), QStringLiteral(" exercices")));
        formulaire->Text3->setText(
            Compte(ecritures, QStringLiteral(" écriture"), QStringLiteral(" écritures")));
        NbEcrituresBase = ecritures;
        ligne = 50;
        AffHistoSauvegardes();
    } catch (...) {
        AfficherErreurOrigine(Module, QStringLiteral("Form_Load"), ligne);
    }
}

void Backup::showEvent(QShowEvent* evenement) {
    ui::EcranModal::showEvent(evenement);
    if (!activee) {
        activee = true;
        QTimer::singleShot(0, this, &Backup::Form_Activate);
    }
}

// Une archive donnée en ligne de commande (double clic sur un .sav) : restauration.
void Backup::Form_Activate() {
    int ligne = 10;
    try {
        const QString commande = session().LigneCommande;
        if (!EstArchiveLigneCommande(commande)) return;
        ligne = 20;
        const QString question =
            QStringLiteral("Confirmez-vous la restauration de \n") + commande +
            QStringLiteral(" ?\n\nNOTE : Le contenu de votre base de données actuelle sera "
                           "irrémédiablement perdu.");
        if (ui::Boite(question, QStringLiteral("Maroval"), ui::Icone::Question,
                      ui::Boutons::OuiNonAnnuler) != ui::Reponse::Oui)
            return;
        ligne = 30;
        FermerBase();
        QString fichier = commande;
        fichier.remove(QLatin1Char('"'));
        RestaurerArchive(fichier);
    } catch (...) {
        AfficherErreurOrigine(Module, QStringLiteral("Form_Activate"), ligne);
    }
}

void Backup::AffHistoSauvegardes() {
    int ligne = 10;
    try {
        ui::Grille* liste = formulaire->SftTree1;
        const QString chemin = CheminHistorique();
        if (!QFileInfo::exists(chemin)) CreerHistoriqueVide(chemin);
        ligne = 20;
        liste->Vider();
        const QList<LigneHistorique> lignes = LireHistorique(chemin);
        ligne = 30;
        qint64 plusHaut = 0;
        for (const LigneHistorique& l : lignes) {
            const QString fichier = l.FichierSauvegarde.value_or(QString());
            const int i =
                liste->AjouterLigne({DateHistorique(l.Date.value_or(QString())),
                                     QString::number(l.NbEcritures) + QStringLiteral(" écritures"),
                                     fichier, QString()});
            liste->FixerDonneeCellule(i, ColDate, l.HistoID);
            liste->FixerDonneeCellule(i, ColFichier, l.TailleFic);
            // Un disque ou un support débranché donne "Non" sans arrêter la liste.
            const bool accessible = !fichier.isEmpty() && QFileInfo::exists(fichier);
            liste->FixerTexte(i, ColAccessible, accessible ? Oui : Non);
            if (!accessible) liste->FixerCouleurCellule(i, ColAccessible, QColor(192, 0, 0));
            plusHaut = std::max(plusHaut, l.HistoID);
        }
        ligne = 40;
        ProchainHistoID = plusHaut + 1;
        liste->Trier(ColDate);
    } catch (...) {
        AfficherErreurOrigine(Module, QStringLiteral("AffHistoSauvegardes"), ligne);
    }
}

void Backup::Command2_Click() {
    const QString dossier = session().DossierDonnees;
    // La base doit être fermée pour être lue comme un seul fichier.
    FermerBase();
    QString chemin = ui::ChoisirFichierEnregistrer(QStringLiteral("Sauvegarde"),
                                                   NomSauvegardeParDefaut(), FiltreSauvegarde());
    if (chemin.isEmpty()) {
        OuvrirBase(dossier);
        return;
    }
    chemin = QFileInfo(chemin).absoluteFilePath();
    if (EstFichierDeMaroval(dossier, chemin)) {
        OuvrirBase(dossier);
        ui::Boite(QStringLiteral("Une sauvegarde ne peut pas remplacer un fichier de Maroval "
                                 "lui-même :\n\n") +
                      chemin + QStringLiteral("\n\nChoisissez un autre nom de fichier."),
                  QStringLiteral("Sauvegarde NON effectuée"), ui::Icone::Critique);
        return;
    }
    if (!FabriquerArchive(dossier, chemin)) {
        OuvrirBase(dossier);
        // Le dossier n'est pas nommé dans ce message, tel qu'il a toujours été.
        ui::Boite(QStringLiteral("Problème lors de la compression de votre sauvegarde.\n\n"
                                 "Vérifiez que votre dossier  est bien accessible."),
                  QStringLiteral("Sauvegarde NON effectuée"), ui::Icone::Critique);
        return;
    }
    const qint64 taille = QFileInfo(chemin).size();
    formulaire->SftTree1->Vider();
    int ligne = 60;
    try {
        const QString historique = CheminHistorique();
        QList<LigneHistorique> lignes;
        if (QFileInfo::exists(historique)) lignes = LireHistorique(historique);
        ligne = 70;
        const QDateTime t = ui::Maintenant();
        LigneHistorique l;
        l.HistoID = ProchainHistoID;
        l.Date = t.toString(QStringLiteral("yyyyMMdd")) + t.toString(QStringLiteral("hhmmss"));
        l.NbEcritures = NbEcrituresBase;
        l.FichierSauvegarde = chemin;
        l.TailleFic = taille;
        lignes.append(l);
        EcrireHistorique(historique, lignes);
        ligne = 80;
        AffHistoSauvegardes();
    } catch (...) {
        AfficherErreurOrigine(Module, QStringLiteral("Command2_Click"), ligne);
    }
    ui::Boite(QStringLiteral("Sauvegarde effectuée dans le fichier : \n\n") + chemin,
              QStringLiteral("Maroval"), ui::Icone::Information);
    OuvrirBase(dossier);
}

bool Backup::ConfirmerRestauration(const QString& fichier) {
    if (ui::Boite(QStringLiteral("Etes-vous certain(e) de vouloir restaurer le fichier ") +
                      fichier + QStringLiteral(" ?"),
                  QStringLiteral("Confirmation"), ui::Icone::Question,
                  ui::Boutons::OuiNon) == ui::Reponse::Oui)
        return true;
    AffHistoSauvegardes();
    return false;
}

void Backup::Command1_Click() {
    ui::Grille* liste = formulaire->SftTree1;
    const QList<int> choisies = liste->LignesSelectionnees();
    if (choisies.isEmpty()) {
        if (ui::Boite(QStringLiteral("Vous n'avez sélectionné aucune sauvegarde, voulez-vous "
                                     "effectuer une restauration manuelle d'une sauvegarde en "
                                     "désignant vous-même le fichier de sauvegarde ?"),
                      QStringLiteral("Confirmation"), ui::Icone::Question,
                      ui::Boutons::OuiNonAnnuler) == ui::Reponse::Oui)
            Command4_Click();
        return;
    }
    if (choisies.size() > 1) {
        ui::Boite(QStringLiteral("Vous ne pouvez sélectionner qu'une seule sauvegarde pour "
                                 "effectuer une restauration."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
        return;
    }
    const int i = choisies.first();
    const QString fichier = liste->Texte(i, ColFichier);
    if (liste->Texte(i, ColAccessible) == Non) {
        // Le support peut être rebranché entre deux réponses.
        for (;;) {
            if (ui::Boite(QStringLiteral("La sauvegarde que vous avez sélectionnée n'est pas "
                                         "accessible.\n\nConnectez le dispositif de sauvegarde "
                                         "et cliquez OK.\nou assurez-vous que le fichier existe "
                                         "toujours."),
                          QStringLiteral("Maroval"), ui::Icone::Exclamation,
                          ui::Boutons::OKAnnuler) != ui::Reponse::OK)
                return;
            if (!fichier.isEmpty() && QFileInfo::exists(fichier)) break;
        }
    }
    const qint64 taille = QFileInfo(fichier).size();
    const qint64 memorisee = liste->DonneeCellule(i, ColFichier).toLongLong();
    if (taille != memorisee) {
        const QString question =
            QStringLiteral("La taille de votre fichier de sauvegarde (%1)\nest différente\nde "
                           "celle mémorisée lors de la sauvegarde (%2)\n\nVotre sauvegarde est "
                           "probablement endommagée.\n\nSouhaitez-vous continuer tout de même ?")
                .arg(taille)
                .arg(memorisee);
        if (ui::Boite(question, QStringLiteral("Maroval"), ui::Icone::Exclamation,
                      ui::Boutons::OuiNon) != ui::Reponse::Oui)
            return;
    }
    if (!ConfirmerRestauration(fichier)) return;
    RestaurerArchive(fichier);
}

void Backup::Command4_Click() {
    if (ui::Boite(QStringLiteral("Maroval va vous demander de désigner un fichier de "
                                 "sauvegarde.\n\nVoulez-vous continuer ?"),
                  QStringLiteral("Maroval"), ui::Icone::Question,
                  ui::Boutons::OuiNon) != ui::Reponse::Oui)
        return;
    const QString fichier =
        ui::ChoisirFichierOuvrir(QStringLiteral("Restauration"), QString(), FiltreSauvegarde());
    if (fichier.isEmpty()) return;
    if (!ConfirmerRestauration(fichier)) return;
    RestaurerArchive(fichier);
}

void Backup::Command3_Click() {
    Retour();
}

void Backup::Label2_Click() {
    ui::Boite(QStringLiteral("Si vous disposez encore de sauvegardes sur disquettes\n"
                             "de la version précédente de Maroval, vous pouvez les\n"
                             "restaurer en allant dans :\n"
                             "Le menu Sauvegarde & Restauration\n"
                             "Puis Maroval Précédent\n"
                             "Puis Sauvegardes Ancien Maroval"),
              QStringLiteral("Maroval"), ui::Icone::Information);
}

void Backup::SftTree1_KeyDown(int cle) {
    if (cle == Qt::Key_Delete) SupprimerHisto();
}

void Backup::SupprimerHisto() {
    struct Choix {
        qint64 histoId;
        bool accessible;
        QString fichier;
    };
    ui::Grille* liste = formulaire->SftTree1;
    QList<Choix> choix;
    for (int i : liste->LignesSelectionnees())
        choix.append({liste->DonneeCellule(i, ColDate).toLongLong(),
                      liste->Texte(i, ColAccessible) == Oui, liste->Texte(i, ColFichier)});
    int ligne = 10;
    try {
        const QString historique = CheminHistorique();
        for (const Choix& c : choix) {
            ligne = 20;
            QList<LigneHistorique> lignes = LireHistorique(historique);
            const auto it = std::find_if(lignes.begin(), lignes.end(),
                                         [&](const auto& l) { return l.HistoID == c.histoId; });
            if (it == lignes.end()) continue;
            ligne = 30;
            if (c.accessible &&
                ui::Boite(QStringLiteral("Voulez-vous supprimer le fichier de sauvegarde en même "
                                         "temps que l'entrée dans l'historique ?\n\n") +
                              c.fichier,
                          QStringLiteral("Maroval"), ui::Icone::Question,
                          ui::Boutons::OuiNon) == ui::Reponse::Oui &&
                !QFile::remove(c.fichier) && QFileInfo::exists(c.fichier)) {
                // L'entrée reste tant que son fichier est là : rien ne se perd de vue.
                ui::Boite(
                    QStringLiteral("Le fichier de sauvegarde n'a pas pu être supprimé :\n\n") +
                        c.fichier,
                    QStringLiteral("Maroval"), ui::Icone::Exclamation);
                continue;
            }
            ligne = 40;
            lignes.erase(it);
            EcrireHistorique(historique, lignes);
        }
    } catch (...) {
        AfficherErreurOrigine(Module, QStringLiteral("SupprimerHisto"), ligne);
    }
    AffHistoSauvegardes();
}

bool Backup::eventFilter(QObject* objet, QEvent* evenement) {
    if (objet == formulaire->Label2 && evenement->type() == QEvent::MouseButtonRelease &&
        static_cast<QMouseEvent*>(evenement)->button() == Qt::LeftButton) {
        Label2_Click();
        return true;
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

} // namespace ecran
