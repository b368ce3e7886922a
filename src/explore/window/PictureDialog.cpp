#include "explore/window/PictureDialog.h"

#include "drawing/paint/PictureFile.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

namespace korvel {

namespace {

constexpr int leastSide = 200, mostSide = 10000;
constexpr int leastDots = 96, mostDots = 600;
constexpr double centimetresOfInch = 2.54;

class PictureDialog : public QDialog {
  public:
    PictureDialog(const PictureWish& proposed, QWidget& window);
    PictureWish wish() const;

  private:
    QSpinBox* addNumber(const char* name, const char* caption, int least, int most, int value,
                        const char* unit);
    void addKinds(const std::string& extension);
    void addButtons();
    void tellSize();

    QFormLayout* m_rows;
    QComboBox* m_kind;
    QSpinBox *m_width, *m_height, *m_dots;
    QLabel* m_size;
};

PictureDialog::PictureDialog(const PictureWish& proposed, QWidget& window)
    : QDialog(&window), m_rows(new QFormLayout(this)), m_kind(new QComboBox(this)), m_size(new QLabel(this)) {
    setObjectName("dlgPicture");
    setWindowTitle("Save picture");
    addKinds(proposed.extension);
    m_width = addNumber("txtWidth", "&Width", leastSide, mostSide, proposed.pixels.width(), " pixels");
    m_height = addNumber("txtHeight", "&Height", leastSide, mostSide, proposed.pixels.height(), " pixels");
    m_dots =
        addNumber("txtResolution", "&Resolution", leastDots, mostDots, proposed.dotsPerInch, " dots an inch");
    m_size->setObjectName("lblSize");
    m_rows->addRow("On paper", m_size);
    addButtons();
    connect(m_kind, &QComboBox::currentIndexChanged, this, [this] { tellSize(); });
    tellSize();
}

QSpinBox* PictureDialog::addNumber(const char* name, const char* caption, int least, int most, int value,
                                   const char* unit) {
    auto* box = new QSpinBox(this);
    box->setObjectName(name);
    box->setRange(least, most);
    box->setValue(value);
    box->setSuffix(unit);
    m_rows->addRow(caption, box);
    connect(box, &QSpinBox::valueChanged, this, [this] { tellSize(); });
    return box;
}

void PictureDialog::addKinds(const std::string& extension) {
    m_kind->setObjectName("cboKind");
    for (const PictureFormat& format : pictureFormats())
        if (!format.hasOwnDialog) m_kind->addItem(format.name, QString(format.extension));
    m_kind->setCurrentIndex(std::max(0, m_kind->findData(QString::fromStdString(extension))));
    m_rows->addRow("&Kind", m_kind);
}

void PictureDialog::addButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton("&Save ...", QDialogButtonBox::AcceptRole)->setObjectName("cmdSave");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    m_rows->addRow(buttons);
}

// Lines have no dots: what is drawn with them is as fine as what shows it.
void PictureDialog::tellSize() {
    const bool hasDots = m_kind->currentData().toString() == ".png";
    m_dots->setEnabled(hasDots);
    const double dots = hasDots ? m_dots->value() : leastDots;
    const auto centimetres = [&](int pixels) {
        return QString::number(pixels / dots * centimetresOfInch, 'f', 1);
    };
    m_size->setText(QString("%1 x %2 cm").arg(centimetres(m_width->value()), centimetres(m_height->value())));
    for (QSpinBox* box : {m_width, m_height, m_dots})
        box->setAccessibleDescription("On paper " + m_size->text());
}

PictureWish PictureDialog::wish() const {
    return {{m_width->value(), m_height->value()},
            m_dots->isEnabled() ? m_dots->value() : leastDots,
            m_kind->currentData().toString().toStdString()};
}

} // namespace

std::optional<PictureWish> askForPicture(const PictureWish& proposed, QWidget& window) {
    PictureDialog dialog(proposed, window);
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.wish();
}

} // namespace korvel
