#pragma once
// Petit panneau de conseils : une icône, un texte, et un bouton qui passe au conseil
// suivant quand il y en a plusieurs. Les conseils arrivent en un seul texte séparé par "|".

#include <QFrame>
#include <QStringList>
#include <memory>

namespace Ui {
class BoiteAide;
}

namespace ui {

class BoiteAide : public QFrame {
    Q_OBJECT
    Q_PROPERTY(QString MessageAide READ MessageAide WRITE FixerMessageAide)
public:
    explicit BoiteAide(QWidget* parent = nullptr);
    ~BoiteAide() override;

    QString MessageAide() const { return texte; }
    void FixerMessageAide(const QString& message);

    QStringList Messages() const { return messages; }
    int MessageMontre() const { return rang; }

public slots:
    void BTMsgSuivant_Click();

private:
    void Montrer();

    std::unique_ptr<Ui::BoiteAide> ui;
    QString texte;
    QStringList messages;
    int rang = 0;
};

} // namespace ui
