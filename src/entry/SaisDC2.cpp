#include "entry/SaisDC2.h"

#include "chart/Plan2.h"
#include "consultation/DetailCp.h"
#include "entry/LigneMenu.h"
#include "entry/SessionSaisie.h"
#include "session/Session.h"
#include "session/Texte.h"
#include "store/Base.h"
#include "store/Routines.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/ChampDate.h"
#include "ui_SaisDC2.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace ecran {

namespace {

QString NomJournal(const QString& journal) {
    if (journal == QLatin1String("V")) return QStringLiteral("Journal des ventes");
    if (journal == QLatin1String("A")) return QStringLiteral("Journal des achats");
    if (journal == QLatin1String("T")) return QStringLiteral("Journal de trésorerie");
    if (journal == QLatin1String("D")) return QStringLiteral("Journal des opérations diverses");
    if (journal == QLatin1String("I")) return QStringLiteral("Journal d'inventaire");
    return {};
}

QString NomOperation(const QString& ligne) {
    if (ligne == QLatin1String("31")) return QStringLiteral(" : Encaissements clients");
    if (ligne == QLatin1String("32")) return QStringLiteral(" : Règlements fournisseurs");
    if (ligne == QLatin1String("33")) return QStringLiteral(" : Encaissements produits");
    if (ligne == QLatin1String("34")) return QStringLiteral(" : Règlements charges");
    if (ligne == QLatin1String("37")) return QStringLiteral(" : Encaissements/Règlements divers");
    return {};
}

// Cases de Tableau dont les classes font la liste des comptes du journal ; vide quand
// le journal prend tout le plan sauf quelques comptes.
QStringList CasesDuJournal(const QString& journal, const QString& ligne) {
    if (journal == QLatin1String("V")) return {"111", "112", "113"};
    if (journal == QLatin1String("A")) return {"211", "212", "213"};
    if (journal == QLatin1String("T") &&
        (ligne == QLatin1String("33") || ligne == QLatin1String("34")))
        return {ligne + u'1', ligne + u'2', ligne + u'3'};
    if (journal == QLatin1String("T") &&
        (ligne == QLatin1String("31") || ligne == QLatin1String("32")))
        return {ligne + u'1', ligne + u'2'};
    return {};
}

// Requête de Tree1 : classes des cases réunies (doublons laissés), ou exclusions.
std::string RequeteComptes(const QString& journal, const QString& ligne) {
    const std::string debut = "SELECT NumCpt, LibCpt, Solde FROM Compte WHERE CleCpt=?";
    const std::string fin = " ORDER BY NumCpt";
    if (journal == QLatin1String("I")) return debut + " AND NumCpt<>'400' AND NumCpt<>'410'" + fin;
    const QStringList cases = CasesDuJournal(journal, ligne);
    if (cases.isEmpty())
        return debut + " AND NumCpt<>'400' AND NumCpt<>'410' AND NumCpt<>'699' AND NumCpt<>'799'" +
               fin;
    QStringList classes;
    for (const QString& c : cases) {
        table::Tableau t;
        if (!LireLigneMenu(c, t)) continue;
        for (int n = 1; n <= qMin<int>(t.tTaille, 20); ++n)
            classes << QStringLiteral("Menu=%1").arg(ClasseAutorisee(t, n));
    }
    // Aucune classe : une liste vide plutôt qu'une requête mal formée.
    if (classes.isEmpty()) return debut + " AND 0" + fin;
    return debut + " AND (" + classes.join(QStringLiteral(" OR ")).toStdString() + ")" + fin;
}

} // namespace

SaisDC2::SaisDC2(QWidget* parent) : ui::EcranModal(parent), ui(std::make_unique<Ui::SaisDC2>()) {
    ui->setupUi(this);
    ui->Tree1->FixerColonnes(
        {QStringLiteral("Numéro"), QStringLiteral("Libellé"), QStringLiteral("Solde")});
    ui->Tree2->FixerColonnes({QStringLiteral("Numéro"), QStringLiteral("Libellé"),
                              QStringLiteral("Débit"), QStringLiteral("Crédit")});
    // Les quatre colonnes des lignes tiennent dans la moitié droite de l'écran.
    const QList<QPair<ui::Grille*, QList<int>>> largeurs{{ui->Tree1, {80, 200, 110}},
                                                         {ui->Tree2, {80, 140, 100, 100}}};
    for (const auto& [grille, colonnes] : largeurs)
        for (int c = 0; c < colonnes.size(); ++c)
            grille->FixerLargeurColonne(c, colonnes[c]);
    ui::PreparerChampDate(ui->Text1);
    ui::PreparerChampDate(ui->Text3);
    ui->Tree2->FixerValidation([this](int ligne, int colonne, QString& texte) {
        return ValiderMontant(ligne, colonne, texte);
    });
    for (QWidget* w : {static_cast<QWidget*>(ui->Text1), static_cast<QWidget*>(ui->Text2),
                       static_cast<QWidget*>(ui->Text3), static_cast<QWidget*>(ui->Text4),
                       static_cast<QWidget*>(ui->Tree1), static_cast<QWidget*>(ui->Tree2)})
        w->installEventFilter(this);
    connect(ui->BAjout, &QPushButton::clicked, this, &SaisDC2::BAjout_Click);
    connect(ui->BSuppr, &QPushButton::clicked, this, &SaisDC2::BSuppr_Click);
    connect(ui->Check1, &QCheckBox::clicked, this, &SaisDC2::Check1_Click);
    connect(ui->Text4, &QLineEdit::textEdited, this, &SaisDC2::Text4_Change);
    connect(ui->Tree1, &QTreeWidget::itemDoubleClicked, this, &SaisDC2::BAjout_Click);
    connect(ui->Tree2, &QTreeWidget::itemClicked, this, &SaisDC2::Tree2_Click);
    connect(ui->Tree2, &QTreeWidget::itemDoubleClicked, this, &SaisDC2::BSuppr_Click);
    connect(ui->Tree2, &ui::Grille::touche, this, &SaisDC2::Tree2_Touche);
    connect(ui->Command1, &QPushButton::clicked, this, &SaisDC2::Command1_Click);
    connect(ui->Command2, &QPushButton::clicked, this, &SaisDC2::Command2_Click);
    connect(ui->Command3, &QPushButton::clicked, this, &SaisDC2::Command3_Click);
    connect(ui->Command4, &QPushButton::clicked, this, &SaisDC2::Command4_Click);
    connect(ui->Command5, &QPushButton::clicked, this, &SaisDC2::Command5_Click);
    connect(ui->Command6, &QPushButton::clicked, this, &SaisDC2::Command6_Click);
    Form_Load();
}

SaisDC2::~SaisDC2() = default;

void SaisDC2::Form_Load() {
    NumLigneSaisie = 0;
    ui->Command1->setEnabled(false);
    const QString cle = CleCourante();
    table::Constante k;
    LireConstante(cle, k);
    QString numero = QString::number(static_cast<qint64>(k.LastNumEcrit) + 1);
    {
        SQLite::Statement q(Base(), "SELECT MAX(NumEcr) FROM Ecriture WHERE CleCpt=?");
        q.bind(1, cle.toStdString());
        // Le plus grand numéro des livres l'emporte sur le compteur.
        if (q.executeStep() && !q.getColumn(0).isNull())
            numero = QString::number(static_cast<qint64>(q.getColumn(0).getDouble()) + 1);
    }
    ui->Label1->setText(numero.isEmpty() ? QStringLiteral("1") : numero);
    ui::FixerTexteDate(ui->Text1, DateVersEcran(k.DateSaisie));
    const QString zero = FormaterMontant(Montant(), session().FormatMontant);
    ui->LTotDeb->setText(zero);
    ui->LTotCre->setText(zero);
    const QString journal = JournalSaisie();
    QString titre = QStringLiteral("Saisie Débits / Crédits : ") + NomJournal(journal);
    if (journal == QLatin1String("T")) titre += NomOperation(LigneMenuSaisie());
    setWindowTitle(titre);
    const bool echeance = journal == QLatin1String("V") || journal == QLatin1String("A");
    ui->Text3->setVisible(echeance);
    ui->Label5->setVisible(echeance);
    RemplirCompteDC();
    ReconstruireDepuisSaisie(false);
}

void SaisDC2::RemplirCompteDC() {
    ui->Tree1->Vider();
    SQLite::Statement q(Base(), RequeteComptes(JournalSaisie(), LigneMenuSaisie()));
    q.bind(1, CleCourante().toStdString());
    while (q.executeStep())
        ui->Tree1->AjouterLigne(
            {QString::fromUtf8(q.getColumn(0).getText()),
             QString::fromUtf8(q.getColumn(1).getText()),
             FormaterMontant(Montant::depuisDixMilliemes(q.getColumn(2).getInt64()),
                             session().FormatMontant)});
}

// Tree2 refait depuis wSaisie : la vérité est dans les lignes, pas dans les cellules.
void SaisDC2::ReconstruireDepuisSaisie(bool avecMontants) {
    ui->Tree2->Vider();
    SQLite::Statement q(Base(), "SELECT wNumCpt, wLibCpt, wMntEcr, wDCEcr, wNumEcrt FROM wSaisie");
    while (q.executeStep()) {
        QString debit, credit;
        if (avecMontants) {
            const QString m =
                FormaterMontant(Montant::depuisDixMilliemes(q.getColumn(2).getInt64()).abs(),
                                session().FormatMontant);
            (QString::fromUtf8(q.getColumn(3).getText()) == QLatin1String("D") ? debit : credit) =
                m;
        }
        ui->Tree2->AjouterLigne({QString::fromUtf8(q.getColumn(0).getText()),
                                 QString::fromUtf8(q.getColumn(1).getText()), debit, credit},
                                q.getColumn(4).getDouble());
    }
}

void SaisDC2::BAjout_Click() {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0) return;
    const QString numero = ui->Tree1->Texte(ligne, 0).trimmed();
    {
        auto& q = Requete("SELECT wNumCpt, wLibCpt FROM wSaisie WHERE wNumCpt=? LIMIT 1");
        q.bind(1, numero.toStdString());
        if (q.executeStep()) {
            const QString n = TexteLu(QString::fromUtf8(q.getColumn(0).getText()), 8);
            const QString l = QString::fromUtf8(q.getColumn(1).getText()).trimmed();
            q.reset();
            ui::Boite(QStringLiteral("Le compte \"%1 %2\" est déjà présent.").arg(n, l),
                      QStringLiteral("Maroval"), ui::Icone::Exclamation);
            return;
        }
    }
    table::Compte c;
    // Un compte supprimé entre-temps vaut une ligne non choisie.
    if (!LireCompte(CleCourante(), numero, c)) return;
    table::Saisie s;
    s.wNumEcrt = ++NumLigneSaisie;
    s.wNumCpt = c.NumCpt;
    s.wErEcr = c.ErCpt;
    s.wLibCpt = c.LibCpt;
    s.wSolde = c.Solde;
    s.wTiers = c.Tiers;
    s.wBilan = c.Bilan;
    s.wMenu = c.Menu;
    s.wJournal = JournalSaisie();
    AjouterSaisie(s);
    ui->Tree2->AjouterLigne({numero, c.LibCpt.trimmed(), QString(), QString()}, s.wNumEcrt);
    if (ui->Check1->isChecked()) ui->Tree2->Trier(0);
}

void SaisDC2::BSuppr_Click() {
    ui::Grille* t2 = ui->Tree2;
    if (t2->NombreLignes() == 0) return;
    const int ligne = qMax(0, t2->LigneCourante());
    if (t2->EditionOuverte()) t2->AnnulerEdition();
    auto& q = Requete("DELETE FROM wSaisie WHERE rowid=(SELECT rowid FROM wSaisie WHERE "
                      "wNumEcrt=? ORDER BY rowid LIMIT 1)");
    q.bind(1, t2->DonneeLigne(ligne).toDouble());
    q.exec();
    t2->SupprimerLigne(ligne);
    MajTotDC2();
}

void SaisDC2::Check1_Click() {
    if (ui->Check1->isChecked()) ui->Tree2->Trier(0);
}

void SaisDC2::Text4_Change() {
    QLineEdit* t4 = ui->Text4;
    const int curseur = t4->cursorPosition();
    t4->setText(t4->text().toUpper());
    t4->setCursorPosition(curseur);
    ui::Grille* t1 = ui->Tree1;
    if (t1->NombreLignes() == 0) return;
    const QString cherche = t4->text();
    int trouve = t1->NombreLignes() - 1;
    for (int l = 0; l < t1->NombreLignes(); ++l)
        if (t1->Texte(l, 0) >= cherche) {
            trouve = l;
            break;
        }
    t1->FixerLigneCourante(trouve);
    t1->RendreVisible(trouve);
}

void SaisDC2::Command2_Click() {
    Retour();
}

void SaisDC2::Command3_Click() {
    ui::AfficherAide(8);
}

void SaisDC2::Command4_Click() {
    Plan2 plan(this);
    plan.exec();
    RemplirCompteDC();
}

void SaisDC2::Command5_Click() {
    // SaisDC2, SaisDC et le début de la chaîne.
    Quitter();
}

void SaisDC2::Command6_Click() {
    const int ligne = ui->Tree1->LigneCourante();
    if (ligne < 0 || !ui->Tree1->EstSelectionnee(ligne)) {
        ui::Boite(QStringLiteral("Aucun compte n'est sélectionné !"), QStringLiteral("Maroval"),
                  ui::Icone::Information);
        return;
    }
    CompteChoisi() = ui->Tree1->Texte(ligne, 0).trimmed();
    DetailCp detail(this);
    detail.exec();
}

void SaisDC2::Aller(QWidget* cible) {
    if (cible) cible->setFocus(Qt::OtherFocusReason);
}

bool SaisDC2::eventFilter(QObject* objet, QEvent* evenement) {
    if (evenement->type() == QEvent::KeyPress) {
        const int cle = static_cast<QKeyEvent*>(evenement)->key();
        if (ToucheChamp(objet, cle) || ToucheListe(objet, cle)) return true;
    } else if (evenement->type() == QEvent::FocusOut) {
        const auto raison = static_cast<QFocusEvent*>(evenement)->reason();
        // Une boîte ou une autre fenêtre qui prend la main n'est pas une sortie du champ.
        if (raison != Qt::ActiveWindowFocusReason && raison != Qt::PopupFocusReason &&
            PerteFocus(objet))
            return false;
    }
    return ui::EcranModal::eventFilter(objet, evenement);
}

bool SaisDC2::ToucheChamp(QObject* objet, int cle) {
    const bool entree = cle == Qt::Key_Return || cle == Qt::Key_Enter;
    QWidget* apresLibelle = ui->Text3->isVisible() ? static_cast<QWidget*>(ui->Text3)
                                                   : static_cast<QWidget*>(ui->Text4);
    if (objet == ui->Text1 && entree) {
        Aller(ui->Text2);
    } else if (objet == ui->Text2 && entree) {
        Aller(apresLibelle);
    } else if (objet == ui->Text3 && (entree || cle == Qt::Key_Down)) {
        Aller(ui->Text4);
    } else if (objet == ui->Text3 && cle == Qt::Key_Up) {
        Aller(ui->Text2);
    } else if (objet == ui->Text4 && entree) {
        const QString texte = ui->Text4->text().trimmed();
        const int l = ui->Tree1->LigneCourante();
        if (ui->Text4->text().isEmpty()) {
            Aller(ui->Tree1);
        } else if (l >= 0 && ui->Tree1->Texte(l, 0).trimmed() == texte) {
            BAjout_Click();
            ui->Text4->clear();
        }
    } else if (objet == ui->Text4 && cle == Qt::Key_Up) {
        Aller(ui->Text3->isVisible() ? static_cast<QWidget*>(ui->Text3)
                                     : static_cast<QWidget*>(ui->Text2));
    } else if (objet == ui->Text4 && cle == Qt::Key_Right) {
        Aller(ui->Tree2);
    } else {
        return false;
    }
    return true;
}

bool SaisDC2::ToucheListe(QObject* objet, int cle) {
    if (objet == ui->Tree1) {
        const int l = ui->Tree1->LigneCourante(), n = ui->Tree1->NombreLignes();
        if (cle == Qt::Key_Return || cle == Qt::Key_Enter) {
            BAjout_Click();
        } else if (cle == Qt::Key_Right || (cle == Qt::Key_Down && l == n - 1)) {
            Aller(ui->Tree2);
        } else if (cle == Qt::Key_Up && l <= 0) {
            Aller(ui->Text4);
        } else {
            return false;
        }
        return true;
    }
    if (objet == ui->Tree2 && !ui->Tree2->EditionOuverte()) {
        const int l = ui->Tree2->LigneCourante(), n = ui->Tree2->NombreLignes();
        if ((cle == Qt::Key_Left || cle == Qt::Key_Up) && l <= 0) {
            Aller(ui->Tree1);
        } else if (cle == Qt::Key_Down && l == n - 1) {
            Aller(ui->Command1->isEnabled() ? ui->Command1 : ui->Command2);
        } else if (cle == Qt::Key_Delete) {
            BSuppr_Click();
        } else {
            return false;
        }
        return true;
    }
    return false;
}

bool SaisDC2::PerteFocus(QObject* objet) {
    if (objet == ui->Text1 || (objet == ui->Text3 && ui::TexteDate(ui->Text3) != ui::DateVide())) {
        auto* champ = static_cast<QLineEdit*>(objet);
        if (!DateValide(ui::TexteDate(champ))) {
            ui::Boite(QStringLiteral("La date a été mal saisie."), QStringLiteral("Maroval"),
                      ui::Icone::Exclamation);
            QMetaObject::invokeMethod(
                champ, [champ] { champ->setFocus(); }, Qt::QueuedConnection);
        }
        return true;
    }
    if (objet == ui->Text2 && ui->Text2->text().trimmed().isEmpty()) {
        ui::Boite(QStringLiteral("Le libellé est OBLIGATOIRE"), QStringLiteral("Maroval"),
                  ui::Icone::Exclamation);
        if (ui->Text3->isVisible()) Aller(ui->Text3);
        return true;
    }
    return false;
}

} // namespace ecran
