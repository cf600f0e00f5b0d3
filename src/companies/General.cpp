#include "companies/General.h"

#include "analytic/Analy0.h"
#include "backup/Backup.h"
#include "backup/Restauration.h"
#include "backup/Restaure.h"
#include "backup/Sauve.h"
#include "budget/Budget00.h"
#include "budget/Budget04.h"
#include "budget/ControleDetaille.h"
#include "chart/Plan2.h"
#include "companies/APropos.h"
#include "companies/Options.h"
#include "companies/OuvertureEcrans.h"
#include "companies/Restauration.h"
#include "companies/Societe.h"
#include "consultation/Balance.h"
#include "consultation/BilGraph.h"
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
#include "fiscal/Fiscalite.h"
#include "reports/Editions.h"
#include "session/Session.h"
#include "treasury/Previsions.h"
#include "treasury/Rappr.h"
#include "treasury/Tresor01.h"
#include "treasury/Tresor02.h"
#include "treasury/Tresor05.h"
#include "ui/Aide.h"
#include "ui/Boite.h"
#include "ui/Fin.h"
#include "ui/Horloge.h"
#include "ui_General.h"

#include <QCloseEvent>
#include <QHash>
#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QPointer>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <QToolButton>

namespace ecran {

namespace {

QPointer<General> instance;

// Clé d'une entrée déroulante et l'ouverture de son écran.
const QHash<QString, void (*)(QWidget*)>& EcransDeroulants() {
    static const QHash<QString, void (*)(QWidget*)> e = {
        {QStringLiteral("SaisDC"), &OuvrirEcran<SaisDC>},
        {QStringLiteral("Saislog"), &OuvrirEcran<Saislog>},
        {QStringLiteral("Annul"), &OuvrirEcran<Annul>},
        {QStringLiteral("ModifLibel"), &OuvrirEcran<ModifLib>},
        {QStringLiteral("Journaux"), &OuvrirEcran<Journal>},
        {QStringLiteral("Balances"), &OuvrirEcran<Balance>},
        {QStringLiteral("Resultat"), &OuvrirEcran<Resultat>},
        {QStringLiteral("Bilan"), &OuvrirEcran<Consult>},
        {QStringLiteral("Consultcpt"), &OuvrirEcran<ConsCpt>},
        {QStringLiteral("Graphiques"), &OuvrirEcran<BilGraph>},
        {QStringLiteral("Budget01"), &OuvrirEcran<Budget00>},
        {QStringLiteral("Budget02"), &OuvrirEcran<Budget00>},
        {QStringLiteral("Budget03"), &OuvrirEcran<budget03>},
        {QStringLiteral("Budget04"), &OuvrirEcran<Budget04>},
        {QStringLiteral("Choix1"), &OuvrirEcran<Tresor01>},
        {QStringLiteral("Choix2"), &OuvrirEcran<Tresor02>},
        {QStringLiteral("Choix3"), &OuvrirEcran<Tresor03>},
        {QStringLiteral("Choix4"), &OuvrirEcran<Tresor04>},
        {QStringLiteral("Choix5"), &OuvrirEcran<Tresor05>},
    };
    return e;
}

// Une pièce marquée de l'euro : le style n'a pas d'icône pour la trésorerie.
QIcon IconeTresorerie() {
    QPixmap image(56, 56);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(QColor(150, 110, 20), 3));
    p.setBrush(QColor(240, 196, 60));
    p.drawEllipse(QRectF(4, 4, 48, 48));
    QFont police = p.font();
    police.setPixelSize(32);
    police.setBold(true);
    p.setFont(police);
    p.setPen(QColor(120, 80, 10));
    p.drawText(QRectF(4, 4, 48, 48), Qt::AlignCenter, QStringLiteral("€"));
    return QIcon(image);
}

} // namespace

General::General(QWidget* parent) : QMainWindow(parent), ui(std::make_unique<Ui::General>()) {
    ui->setupUi(this);
    instance = this;
    PreparerBarre();

    connect(ui->SocGerer, &QAction::triggered, this, &General::SocGerer_Click);
    connect(ui->SocQuit, &QAction::triggered, this, &General::SocQuit_Click);
    connect(ui->SMCreer, &QAction::triggered, this, &General::SMCreer_Click);
    connect(ui->SMSauve, &QAction::triggered, this, &General::SMSauve_Click);
    connect(ui->SMAncienne, &QAction::triggered, this, &General::SMAncienne_Click);
    connect(ui->SMRestaure, &QAction::triggered, this, &General::SMRestaure_Click);
    connect(ui->SMBalFisc, &QAction::triggered, this, &General::SMBalFisc_Click);
    connect(ui->SMFEC, &QAction::triggered, this, &General::SMFEC_Click);
    connect(ui->SMSymbMon, &QAction::triggered, this, &General::SMSymbMon_Click);
    connect(ui->SMIndex, &QAction::triggered, this, &General::SMIndex_Click);
    connect(ui->SMPropos, &QAction::triggered, this, &General::SMPropos_Click);
    // F1 sur l'écran principal : l'index de l'aide.
    auto* f1 = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(f1, &QShortcut::activated, this, &General::SMIndex_Click);

    panneauDate = new QLabel(this);
    panneauDate->setObjectName(QStringLiteral("Panel1"));
    panneauHeure = new QLabel(this);
    panneauHeure->setObjectName(QStringLiteral("Panel2"));
    ui->StatusBar1->addPermanentWidget(panneauDate);
    ui->StatusBar1->addPermanentWidget(panneauHeure);
    horloge = new QTimer(this);
    horloge->setInterval(15000);
    connect(horloge, &QTimer::timeout, this, &General::MajStatusBar1);
    horloge->start();
    MajStatusBar1();
}

General::~General() = default;

General* General::Instance() {
    return instance;
}

void General::PreparerBarre() {
    const QList<std::pair<QAction*, QStyle::StandardPixmap>> icones = {
        {ui->Quitter, QStyle::SP_DialogCloseButton},
        {ui->Plan, QStyle::SP_FileDialogDetailedView},
        {ui->Saisie, QStyle::SP_FileIcon},
        {ui->Consult, QStyle::SP_FileDialogContentsView},
        {ui->Edition, QStyle::SP_FileDialogInfoView},
        {ui->Rappr, QStyle::SP_BrowserReload},
        {ui->Cloture, QStyle::SP_DialogApplyButton},
        {ui->Sauver, QStyle::SP_DialogSaveButton},
        {ui->Analyt, QStyle::SP_DirIcon},
        {ui->Budget, QStyle::SP_FileDialogListView},
        {ui->Tresorerie, QStyle::SP_CustomBase},
        {ui->Aide, QStyle::SP_MessageBoxQuestion},
        {ui->Apropos, QStyle::SP_MessageBoxInformation},
    };
    for (const auto& [action, icone] : icones) {
        action->setIcon(icone == QStyle::SP_CustomBase ? IconeTresorerie()
                                                       : style()->standardIcon(icone));
        const QString cle = action->objectName();
        connect(action, &QAction::triggered, this, [this, cle] { Toolbar2_ButtonClick(cle); });
    }
    const QList<std::pair<QAction*, QList<QAction*>>> deroulants = {
        {ui->Saisie, {ui->SaisDC, ui->Saislog, ui->Annul, ui->ModifLibel}},
        {ui->Consult,
         {ui->Journaux, ui->Balances, ui->Resultat, ui->Bilan, ui->Consultcpt, ui->Graphiques}},
        {ui->Budget, {ui->Budget01, ui->Budget02, ui->Budget03, ui->Budget04}},
        {ui->Tresorerie, {ui->Choix1, ui->Choix2, ui->Choix3, ui->Choix4, ui->Choix5}},
    };
    for (const auto& [bouton, entrees] : deroulants) {
        auto* menu = new QMenu(this);
        menu->setObjectName(QStringLiteral("Menu") + bouton->objectName());
        for (QAction* entree : entrees) {
            menu->addAction(entree);
            const QString cle = entree->objectName();
            connect(entree, &QAction::triggered, this,
                    [this, cle] { Toolbar2_ButtonMenuClick(cle); });
        }
        bouton->setMenu(menu);
    }
    // Les boutons portent aussi la clé de leur action.
    for (QAction* action : ui->Toolbar2->actions()) {
        auto* bouton = qobject_cast<QToolButton*>(ui->Toolbar2->widgetForAction(action));
        if (!bouton) continue;
        bouton->setObjectName(action->objectName());
        if (action->menu()) bouton->setPopupMode(QToolButton::MenuButtonPopup);
    }
}

void General::MajStatusBar1() {
    const QDateTime maintenant = ui::Maintenant();
    const QLocale francais(QLocale::French, QLocale::France);
    panneauDate->setText(francais.toString(maintenant.date(), QStringLiteral("dddd d MMMM yyyy")));
    panneauHeure->setText(maintenant.toString(QStringLiteral("HH:mm")));
}

void General::FixerLibelle(const QString& nom, const QString& texte) {
    if (auto* l = findChild<QLabel*>(nom)) l->setText(texte);
}

QString General::Libelle(const QString& nom) const {
    const auto* l = findChild<QLabel*>(nom);
    return l ? l->text() : QString();
}

QAction* General::Action(const QString& cle) const {
    return findChild<QAction*>(cle);
}

void General::Form_Load() {
    // Une sauvegarde ouverte depuis le bureau : sa restauration attend le choix de la société.
    if (EstArchiveLigneCommande(session().LigneCommande))
        ui::Boite(QStringLiteral("Vous devez sélectionnez une société et un exercice avant de "
                                 "pouvoir restaurer cette sauvegarde."),
                  QStringLiteral("Maroval"), ui::Icone::Information);
}

void General::Toolbar2_ButtonClick(const QString& cle) {
    if (cle == QLatin1String("Quitter")) {
        SocQuit_Click();
    } else if (cle == QLatin1String("Plan")) {
        OuvrirEcran<Plan2>(this);
    } else if (cle == QLatin1String("Saisie")) {
        if (PorteSaisie()) OuvrirEcran<Choisais>(this);
    } else if (cle == QLatin1String("Consult")) {
        if (PlanAuMoins(10)) OuvrirEcran<Consult>(this);
    } else if (cle == QLatin1String("Edition")) {
        if (PlanAuMoins(10) && ControlerSaisies()) OuvrirEcran<Editions>(this);
    } else if (cle == QLatin1String("Rappr")) {
        if (PlanAuMoins(10)) OuvrirEcran<Rappr>(this);
    } else if (cle == QLatin1String("Cloture")) {
        ClotureExercice();
    } else if (cle == QLatin1String("Sauver")) {
        OuvrirEcran<Backup>(this);
    } else if (cle == QLatin1String("Analyt")) {
        if (PlanAuMoins(10)) OuvrirEcran<Analy0>(this);
    } else if (cle == QLatin1String("Budget")) {
        if (PlanAuMoins(10)) OuvrirEcran<Budget00>(this);
    } else if (cle == QLatin1String("Tresorerie")) {
        Tresorerie();
    } else if (cle == QLatin1String("Aide")) {
        SMIndex_Click();
    } else if (cle == QLatin1String("Apropos")) {
        SMPropos_Click();
    }
}

void General::Toolbar2_ButtonMenuClick(const QString& cle) {
    const auto ouvrir = EcransDeroulants().value(cle);
    if (!ouvrir) return;
    static const QStringList saisie = {QStringLiteral("SaisDC"), QStringLiteral("Saislog"),
                                       QStringLiteral("Annul"), QStringLiteral("ModifLibel")};
    static const QStringList consultation = {
        QStringLiteral("Journaux"), QStringLiteral("Balances"),   QStringLiteral("Resultat"),
        QStringLiteral("Bilan"),    QStringLiteral("Consultcpt"), QStringLiteral("Graphiques")};
    // Les entrées du budget et de la trésorerie n'ont pas de porte : un plan encore petit
    // doit pouvoir y accéder.
    if (saisie.contains(cle) && !PorteSaisie()) return;
    if (consultation.contains(cle) && !PlanAuMoins(10)) return;
    ouvrir(this);
}

void General::SocGerer_Click() {
    Societe choix(this);
    choix.exec();
}

void General::SocQuit_Click() {
    ui::TerminerProgramme(0);
}

void General::SMCreer_Click() {
    OuvrirEcran<Plan2>(this);
}

void General::SMSauve_Click() {
    OuvrirEcran<Backup>(this);
}

void General::SMAncienne_Click() {
    OuvrirEcran<Sauve>(this);
}

void General::SMRestaure_Click() {
    if (AvertissementAncienneRestauration(true)) OuvrirEcran<Restaure>(this);
}

void General::SMBalFisc_Click() {
    ConseilFiscal();
    OuvrirEcran<Fiscalite>(this);
}

void General::SMFEC_Click() {
    // Comme les éditions : un plan, et des saisies en ordre.
    if (PlanAuMoins(10) && ControlerSaisies()) OuvrirEcran<ExportFEC>(this);
}

void General::SMSymbMon_Click() {
    Options options(this);
    options.exec();
}

void General::SMIndex_Click() {
    ui::AfficherAideIndex();
}

void General::SMPropos_Click() {
    APropos apropos(this);
    apropos.exec();
}

void General::closeEvent(QCloseEvent* evenement) {
    evenement->ignore();
    SocQuit_Click();
}

void MontrerGeneral() {
    if (!instance) new General();
    instance->show();
    instance->Form_Load();
}

void MontrerSociete() {
    Societe choix(General::Instance());
    choix.exec();
}

void FermerGeneral() {
    delete instance.data();
}

} // namespace ecran
