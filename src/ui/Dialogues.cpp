#include "ui/Dialogues.h"

#include "ui/Boite.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QTimer>
#include <QUrl>

namespace ui {

namespace {

QList<EntreeDialogue> journal;
QList<QString> reponsesFichier;
QList<bool> reponsesImprimante;
QList<bool> reponsesOuverture;
QList<bool> reponsesApercu;
bool modeEssai = false;
int delaiEssai = 20000;

QString Motifs(QString motif) {
    // "*.*" ne désigne que les noms pointés hors de Windows : c'est "tous les fichiers".
    motif.replace(QLatin1Char(';'), QLatin1Char(' '));
    return motif.trimmed() == QLatin1String("*.*") ? QStringLiteral("*") : motif.trimmed();
}

void LibellesFrancais(QFileDialog& dialogue) {
    dialogue.setLabelText(QFileDialog::LookIn, QStringLiteral("Regarder dans :"));
    dialogue.setLabelText(QFileDialog::FileName, QStringLiteral("Nom du fichier :"));
    dialogue.setLabelText(QFileDialog::FileType, QStringLiteral("Type :"));
    dialogue.setLabelText(QFileDialog::Reject, QStringLiteral("Annuler"));
}

// Dialogue de Qt (et non celui du système) : les tests peuvent le piloter.
QString MontrerDialogueFichier(QFileDialog::AcceptMode mode, const QString& titre,
                               const QString& dossier, const QString& nom, const QString& filtre) {
    QFileDialog dialogue(QApplication::activeWindow(), titre, dossier);
    dialogue.setObjectName(QStringLiteral("ChoixFichier"));
    dialogue.setOption(QFileDialog::DontUseNativeDialog, true);
    dialogue.setOption(QFileDialog::DontConfirmOverwrite, true);
    dialogue.setAcceptMode(mode);
    dialogue.setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFile
                                                         : QFileDialog::AnyFile);
    LibellesFrancais(dialogue);
    dialogue.setLabelText(QFileDialog::Accept, mode == QFileDialog::AcceptOpen
                                                   ? QStringLiteral("Ouvrir")
                                                   : QStringLiteral("Enregistrer"));
    if (!filtre.isEmpty()) dialogue.setNameFilter(FiltreQt(filtre));
    if (!nom.isEmpty()) dialogue.selectFile(nom);
    LimiterEnEssai(dialogue);
    while (dialogue.exec() == QDialog::Accepted) {
        const QString choisi = dialogue.selectedFiles().value(0);
        if (choisi.isEmpty()) return QString();
        if (mode == QFileDialog::AcceptOpen || !QFileInfo::exists(choisi)) return choisi;
        // Le remplacement d'un fichier existant se confirme, en français.
        const QString question = QFileInfo(choisi).fileName() +
                                 QStringLiteral(" existe déjà.\nVoulez-vous le remplacer ?");
        if (Boite(question, QStringLiteral("Confirmer l'enregistrement"), Icone::Exclamation,
                  Boutons::OuiNon, 2) == Reponse::Oui)
            return choisi;
    }
    return QString();
}

QString ChoisirFichier(Dialogue type, const QString& titre, const QString& dossier,
                       const QString& nom, const QString& filtre) {
    QString choisi;
    if (!reponsesFichier.isEmpty())
        choisi = reponsesFichier.takeFirst();
    else
        choisi = MontrerDialogueFichier(type == Dialogue::Ouvrir ? QFileDialog::AcceptOpen
                                                                 : QFileDialog::AcceptSave,
                                        titre, dossier, nom, filtre);
    const QString detail = type == Dialogue::Ouvrir ? dossier : nom;
    journal.append({type, titre, detail, filtre, choisi, !choisi.isEmpty(), dossier});
    return choisi;
}

} // namespace

QString FiltreQt(const QString& filtre) {
    const QStringList morceaux = filtre.split(QLatin1Char('|'));
    if (morceaux.size() < 2) return filtre;
    QStringList filtres;
    for (int i = 0; i + 1 < morceaux.size(); i += 2) {
        QString description = morceaux[i].trimmed();
        const QString motifs = Motifs(morceaux[i + 1]);
        // QFileDialog lit les motifs entre les dernières parenthèses.
        const int ouvrante = description.lastIndexOf(QLatin1Char('('));
        if (ouvrante >= 0) description = description.left(ouvrante).trimmed();
        filtres.append(description + QStringLiteral(" (") + motifs + QLatin1Char(')'));
    }
    return filtres.join(QStringLiteral(";;"));
}

QString ChoisirFichierOuvrir(const QString& titre, const QString& dossier, const QString& filtre) {
    return ChoisirFichier(Dialogue::Ouvrir, titre, dossier, QString(), filtre);
}

QString ChoisirFichierEnregistrer(const QString& titre, const QString& nomParDefaut,
                                  const QString& filtre, const QString& dossier) {
    return ChoisirFichier(Dialogue::Enregistrer, titre, dossier, nomParDefaut, filtre);
}

bool ChoisirImprimante(QPrinter& imprimante) {
    bool accepte;
    if (!reponsesImprimante.isEmpty()) {
        accepte = reponsesImprimante.takeFirst();
    } else {
        QPrintDialog dialogue(&imprimante, QApplication::activeWindow());
        dialogue.setObjectName(QStringLiteral("ChoixImprimante"));
        dialogue.setWindowTitle(QStringLiteral("Imprimer"));
        LimiterEnEssai(dialogue);
        accepte = dialogue.exec() == QDialog::Accepted;
    }
    journal.append({Dialogue::Imprimante, QStringLiteral("Imprimer"), imprimante.printerName(),
                    QString(), QString(), accepte, QString()});
    return accepte;
}

bool Apercu(QPrinter& imprimante, const std::function<void(QPrinter*)>& peindre,
            const QString& titre) {
    bool imprime;
    if (!reponsesApercu.isEmpty()) {
        imprime = reponsesApercu.takeFirst();
        if (imprime) peindre(&imprimante);
    } else {
        QPrintPreviewDialog dialogue(&imprimante, QApplication::activeWindow());
        dialogue.setObjectName(QStringLiteral("Apercu"));
        dialogue.setWindowTitle(QStringLiteral("Aperçu avant impression : ") + titre);
        dialogue.resize(900, 1000);
        QObject::connect(&dialogue, &QPrintPreviewDialog::paintRequested, &dialogue,
                         [&](QPrinter* p) { peindre(p); });
        LimiterEnEssai(dialogue);
        imprime = dialogue.exec() == QDialog::Accepted;
    }
    journal.append({Dialogue::Apercu, titre, imprimante.printerName(), QString(), QString(),
                    imprime, QString()});
    return imprime;
}

bool OuvrirFichier(const QString& chemin) {
    bool reussie;
    if (!reponsesOuverture.isEmpty())
        reussie = reponsesOuverture.takeFirst();
    else if (modeEssai)
        reussie = true;
    else
        reussie = QDesktopServices::openUrl(QUrl::fromLocalFile(chemin));
    journal.append(
        {Dialogue::OuvrirFichier, QString(), chemin, QString(), chemin, reussie, QString()});
    return reussie;
}

void RepondreFichier(const QString& chemin) {
    reponsesFichier.append(chemin);
}

void RepondreImprimante(bool accepte) {
    reponsesImprimante.append(accepte);
}

void RepondreApercu(bool imprime) {
    reponsesApercu.append(imprime);
}

void RepondreOuvertureFichier(bool reussie) {
    reponsesOuverture.append(reussie);
}

void OublierReponsesDialogues() {
    reponsesFichier.clear();
    reponsesImprimante.clear();
    reponsesOuverture.clear();
    reponsesApercu.clear();
}

void FixerModeEssai(bool actif) {
    modeEssai = actif;
}

bool ModeEssai() {
    return modeEssai;
}

void FixerDelaiEssai(int millisecondes) {
    delaiEssai = millisecondes;
}

void LimiterEnEssai(QDialog& dialogue) {
    if (!modeEssai) return;
    QDialog* d = &dialogue;
    QTimer::singleShot(delaiEssai, d, [d] {
        if (!d->isVisible()) return;
        const auto* boite = qobject_cast<QMessageBox*>(d);
        qWarning("Essai : « %s »%s resté sans réponse %d ms, fermé", qPrintable(d->objectName()),
                 boite ? qPrintable(QStringLiteral(" (« %1 »)").arg(boite->text())) : "",
                 delaiEssai);
        d->reject();
    });
}

const QList<EntreeDialogue>& JournalDialogues() {
    return journal;
}

void ViderJournalDialogues() {
    journal.clear();
}

void NoterDialogue(const EntreeDialogue& entree) {
    journal.append(entree);
}

} // namespace ui
