#include "entry/SaisQuad.h"

#include "base/Montant.h"
#include "base/Texte.h"
#include "entry/ControlesSaisie.h"
#include "entry/DonneesSaisie.h"
#include "posting/PasserEcriture.h"
#include "session/SaisieMontant.h"
#include "session/Session.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui/Grille.h"
#include "ui_SaisQuad.h"

#include <QKeyEvent>
#include <QTimer>

namespace ecran {

namespace {

const QString kTitre = QStringLiteral("Maroval");

// Rang de la liste (0 à 3) d'un code ErCpt ; -1 pour un code qui n'a pas de liste.
int RangDuCode(const QString& code) {
    static const QStringList codes = {"E1", "R1", "E2", "R2"};
    return codes.indexOf(code.trimmed());
}

} // namespace

SaisQuad::SaisQuad(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::SaisQuad>()) {
    FixerContexteAide(11);
    ui->setupUi(this);
    for (int rang = 0; rang < 4; ++rang)
        BrancherListe(rang);
    connect(ui->Command1, &QPushButton::clicked, this, &SaisQuad::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &SaisQuad::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &SaisQuad::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &SaisQuad::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &SaisQuad::Command5_Click);
    for (QLineEdit* champ : {ui->Text1, ui->Text2, ui->Text3})
        champ->installEventFilter(this);
    Form_Load();
}

SaisQuad::~SaisQuad() = default;

ui::Grille* SaisQuad::Liste(int rang) const {
    ui::Grille* listes[] = {ui->Tree1, ui->Tree2, ui->Tree3, ui->Tree4};
    return rang >= 0 && rang < 4 ? listes[rang] : nullptr;
}

void SaisQuad::BrancherListe(int rang) {
    ui::Grille* g = Liste(rang);
    g->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Montant")});
    g->setColumnWidth(0, 80);
    g->setColumnWidth(1, 230);
    g->setColumnWidth(2, 130);
    g->FixerValidation([this, g](int ligne, int colonne, QString& texte) {
        return Valider(g, ligne, colonne, texte) ? ui::Grille::Validation::Accepter
                                                 : ui::Grille::Validation::GarderOuvert;
    });
    connect(g, &ui::Grille::ligneCliquee, this, [this, g] { OuvrirMontant(g); });
    connect(g, &ui::Grille::touche, this, [this, rang](int cle) { ToucheListe(rang, cle); });
    connect(g, &ui::Grille::ligneCouranteChangee, this, [this, g](int ligne) {
        if (ligne >= 0) AffCompteSelect(g->Texte(ligne, 0).left(8));
    });
}

void SaisQuad::Form_Load() {
    session().CompteChoisi.clear();
    ui::PreparerChampDate(ui->Text1);
    ui::PreparerChampDate(ui->Text3);
    const bool echeance = session().CleMenuSaisie.toInt() < 30;
    ui->Text3->setVisible(echeance);
    ui->Label5->setVisible(echeance);
    const QString zero = FormaterMontant(Montant(), session().FormatMontant);
    ui->Label12->setText(zero);
    ui->Label13->setText(zero);
    setWindowTitle(
        QStringLiteral("Saisie logique de \"%1\"").arg(session().LigneMenuSaisie.trimmed()));

    const saisie::Entete entete = saisie::LireEntete();
    ui->Label1->setText(entete.numero);
    ui::FixerTexteDate(ui->Text1, DateVersEcran(entete.dateSaisie));

    for (const saisie::Ligne& l : saisie::LireLignes()) {
        ui::Grille* g = Liste(RangDuCode(l.s.wErEcr));
        if (!g) continue;
        g->AjouterLigne({l.s.wNumCpt, l.s.wLibCpt.trimmed(),
                         FormaterMontant(l.s.wMntEcr, session().FormatMontant)},
                        l.s.wNumEcrt);
    }
}

void SaisQuad::done(int resultat) {
    // L'image des montants est refaite en quittant l'écran.
    session().FormatMontant =
        ConstruireFormatMontant(session().Decimales, session().SymboleMonnaie);
    ui::EcranModal::done(resultat);
}

std::int16_t SaisQuad::LireSigneLigne(double wNumEcrt) {
    const auto l = saisie::LireLigne(wNumEcrt);
    return l ? static_cast<std::int16_t>(l->s.wSigne.trimmed().toInt()) : std::int16_t(0);
}

void SaisQuad::AffCompteSelect(const QString& numero) {
    table::Compte c;
    LireCompte(CleCourante(), numero.trimmed(), c);
    ui->Label14->setText(numero.trimmed() + QLatin1Char(' ') + c.LibCpt.trimmed() +
                         QStringLiteral("   Solde :") +
                         FormaterMontant(c.Solde, session().FormatMontant));
    ui->Command5->setText(QStringLiteral("Détail cpte ") + numero.trimmed());
    session().CompteChoisi = numero.trimmed();
}

void SaisQuad::OuvrirMontant(ui::Grille* liste) {
    const int ligne = liste->LigneCourante();
    if (ligne < 0) return;
    ui->Command1->setEnabled(false);
    liste->EditerCellule(ligne, 2);
}

bool SaisQuad::Valider(ui::Grille* liste, int ligne, int colonne, QString& texte) {
    texte = SansEspaces(texte);
    if (colonne != 2) return true;
    if (texte.isEmpty()) {
        ui::Boite(QStringLiteral("Entrez un montant SVP."), kTitre);
        return false;
    }
    texte.replace(QLatin1Char('.'), QLatin1Char(','));
    if (!MontantLisible(texte)) {
        ui::Boite(QStringLiteral("Votre saisie n'est pas conforme, Recommencez"), kTitre,
                  ui::Icone::Exclamation);
        texte = FormaterMontant(Montant(), session().FormatMontant);
        return true;
    }
    Montant m = MontantDepuisTexte(texte);
    const double wNumEcrt = liste->DonneeLigne(ligne).toDouble();
    const std::int16_t signe = LireSigneLigne(wNumEcrt);
    if (m < Montant() && signe == 1) {
        m = -m;
        ui::Boite(QStringLiteral("Ce montant devait être positif !\n\nIl va être rectifié par "
                                 "le logiciel."),
                  kTitre, ui::Icone::Exclamation);
    } else if (m > Montant() && signe == 2) {
        m = -m;
        ui::Boite(QStringLiteral("Ce montant devait être négatif !\n\nIl va être rectifié par "
                                 "le logiciel."),
                  kTitre, ui::Icone::Exclamation);
    }
    texte = FormaterMontant(m, session().FormatMontant);
    MajwSaisieLog(FormatFixe(m), liste->Texte(ligne, 0).left(8), wNumEcrt);
    // L'Entrée qui ferme la cellule ne doit pas la rouvrir.
    EditionFaite = true;
    QTimer::singleShot(0, this, [this] { EditionFaite = false; });
    return true;
}

void SaisQuad::MajwSaisieLog(const QString& montant, const QString& numero, double wNumEcrt) {
    if (const auto l = saisie::LireLigne(wNumEcrt, numero)) {
        const Montant m = MontantDepuisTexte(montant);
        saisie::EcrireMontant(l->rowid, {m, saisie::SensDuMontant(l->s.wErEcr, m),
                                         session().DateSaisieCourante, ui::TexteDate(ui->Text1),
                                         ui::TexteDate(ui->Text3)});
    }
    const saisie::Cotes cotes = saisie::SommerCotes();
    ui->Label12->setText(FormaterMontant(cotes.gauche, session().FormatMontant));
    ui->Label13->setText(FormaterMontant(cotes.droite, session().FormatMontant));
    ui->Command1->setEnabled(cotes.gauche == cotes.droite && !cotes.tousNuls);
}

void SaisQuad::Command1_Click() {
    if (!ControlerEquilibre()) return;
    if (!ValiderEtPasser(ui->Text2, ui->Text3, ui->Label1->text())) return;
    session().EcriturePassee = true;
    done(CodeOK);
}

void SaisQuad::Command2_Click() {
    session().EcriturePassee = false;
    Retour();
}

void SaisQuad::Command3_Click() {
    MontrerAide();
}

void SaisQuad::Command4_Click() {
    Quitter();
}

void SaisQuad::Command5_Click() {
    OuvrirDetailCompte(this, session().CompteChoisi);
}

void SaisQuad::Text1_LostFocus() {
    ControlerChampDate(ui->Text1, false);
}

void SaisQuad::Text2_LostFocus() {
    ControlerChampLibelle(ui->Text2);
}

void SaisQuad::Text3_LostFocus() {
    ControlerChampDate(ui->Text3, true);
}

bool SaisQuad::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::FocusOut) {
        // Passer à une autre fenêtre (une boîte, l'écran du dessous) n'est pas quitter le champ.
        const auto raison = static_cast<QFocusEvent*>(evenement)->reason();
        if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason &&
            isVisible()) {
            if (objet == ui->Text1) QTimer::singleShot(0, this, &SaisQuad::Text1_LostFocus);
            if (objet == ui->Text2) QTimer::singleShot(0, this, &SaisQuad::Text2_LostFocus);
            if (objet == ui->Text3) QTimer::singleShot(0, this, &SaisQuad::Text3_LostFocus);
        }
    } else if (evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter || cle == Qt::Key_Down ||
            cle == Qt::Key_Up) {
            ToucheChamp(objet, cle);
            return true;
        }
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

void SaisQuad::ToucheChamp(QObject* champ, int cle) {
    const bool haut = cle == Qt::Key_Up;
    if (champ == ui->Text1) {
        if (haut)
            ui->Command3->setFocus();
        else
            ui->Text2->setFocus();
    } else if (champ == ui->Text2) {
        if (haut)
            ui->Text1->setFocus();
        else if (ui->Text3->isVisible())
            ui->Text3->setFocus();
        else
            AllerAListe(0, false);
    } else if (champ == ui->Text3) {
        if (haut)
            ui->Text2->setFocus();
        else
            AllerAListe(0, false);
    }
}

void SaisQuad::AllerAListe(int rang, bool parLeBas) {
    ui::Grille* g = Liste(rang);
    g->setFocus();
    if (g->NombreLignes() > 0 && g->LigneCourante() < 0)
        g->FixerLigneCourante(parLeBas ? g->NombreLignes() - 1 : 0);
}

void SaisQuad::ToucheListe(int rang, int cle) {
    ui::Grille* g = Liste(rang);
    if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
        // L'Entrée qui ferme une cellule arrive à la liste : elle ne la rouvre pas.
        if (g->EditionOuverte()) return;
        if (EditionFaite) {
            EditionFaite = false;
            return;
        }
        OuvrirMontant(g);
        return;
    }
    const int ligne = g->LigneCourante();
    if (cle == Qt::Key_Up && ligne <= 0) {
        if (rang > 0)
            QTimer::singleShot(0, this, [this, rang] { AllerAListe(rang - 1, true); });
        else if (ui->Text3->isVisible())
            ui->Text3->setFocus();
        else
            ui->Text2->setFocus();
    } else if (cle == Qt::Key_Down && ligne >= g->NombreLignes() - 1) {
        if (rang < 3)
            QTimer::singleShot(0, this, [this, rang] { AllerAListe(rang + 1, false); });
        else if (ui->Command1->isEnabled())
            ui->Command1->setFocus();
        else
            ui->Command2->setFocus();
    }
}

} // namespace ecran
