#include "ui/Aide.h"

#include "ui/Dialogues.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QPointer>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

namespace ui {

namespace {

class NavigateurAide : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

protected:
    // Un lien vers une page qui manque montre aussi le texte d'excuse.
    QVariant loadResource(int type, const QUrl& nom) override {
        if (type == QTextDocument::HtmlResource) {
            const QString chemin = QLatin1Char(':') + nom.path();
            if (!QFile::exists(chemin)) return TexteAideAbsente();
        }
        return QTextBrowser::loadResource(type, nom);
    }
};

QPointer<QDialog> fenetre;

QDialog* PreparerFenetre() {
    // Rattachée à l'écran modal du moment, sinon celui-ci la bloquerait ; sans écran
    // modal, fenêtre indépendante.
    QWidget* parent = QApplication::activeModalWidget();
    if (parent && parent->objectName() == QLatin1String("Aide")) parent = parent->parentWidget();
    if (!fenetre) {
        fenetre = new QDialog(parent);
        fenetre->setObjectName(QStringLiteral("Aide"));
        fenetre->setWindowTitle(QStringLiteral("Aide de Maroval"));
        fenetre->setAttribute(Qt::WA_DeleteOnClose, false);
        auto* navigateur = new NavigateurAide(fenetre);
        navigateur->setObjectName(QStringLiteral("TexteAide"));
        navigateur->setOpenLinks(true);
        auto* disposition = new QVBoxLayout(fenetre);
        disposition->addWidget(navigateur);
        fenetre->resize(640, 480);
    } else if (fenetre->parentWidget() != parent) {
        const bool visible = fenetre->isVisible();
        fenetre->setParent(parent, fenetre->windowFlags());
        if (visible) fenetre->show();
    }
    return fenetre;
}

void Montrer(const QString& page, Dialogue type, const QString& detail) {
    QDialog* f = PreparerFenetre();
    auto* navigateur = f->findChild<QTextBrowser*>(QStringLiteral("TexteAide"));
    const bool trouvee = QFile::exists(page);
    if (trouvee)
        navigateur->setSource(QUrl(QStringLiteral("qrc") + page), QTextDocument::HtmlResource);
    else
        navigateur->setHtml(TexteAideAbsente());
    f->setModal(false);
    f->show();
    f->raise();
    f->activateWindow();
    NoterDialogue({type, f->windowTitle(), detail, QString(), page, trouvee, QString()});
}

} // namespace

QString PageAide(int contexte) {
    return QStringLiteral(":/data/aide/%1.html").arg(contexte);
}

QString PageAideIndex() {
    return QStringLiteral(":/data/aide/menu.html");
}

QString TexteAideAbsente() {
    return QStringLiteral("<html><body><h2>Aide de Maroval</h2>"
                          "<p>Aucune aide n'est encore écrite pour cet écran.</p></body></html>");
}

void AfficherAide(int contexte) {
    Montrer(PageAide(contexte), Dialogue::Aide, QString::number(contexte));
}

void AfficherAideIndex() {
    Montrer(PageAideIndex(), Dialogue::AideIndex, QString());
}

QDialog* FenetreAide() {
    return fenetre;
}

} // namespace ui
