#include "PdfMarks.h"

#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFPageObjectHelper.hh>
#include <qpdf/QPDFWriter.hh>

namespace {

using Object = QPDFObjectHandle;

class CPdfMarker {
public:
    explicit CPdfMarker(QPDF &pdf) : pdf_(pdf), pages_(QPDFPageDocumentHelper(pdf).getAllPages()) {}

    void AddOutline(const std::vector<PdfMark> &marks) {
        if (marks.empty()) return;
        Object root = pdf_.makeIndirectObject(Object::newDictionary());
        root.replaceKey("/Type", Object::newName("/Outlines"));
        size_t next = 0;
        AddItems(root, marks, next, marks.front().level);
        pdf_.getRoot().replaceKey("/Outlines", root);
        pdf_.getRoot().replaceKey("/PageMode", Object::newName("/UseOutlines"));
    }

    void AddLink(const PdfLink &link) {
        Object page = Page(link.page);
        const double height = PageHeight(link.page);
        const QRectF &at = link.place;
        Object note = Object::newDictionary();
        note.replaceKey("/Type", Object::newName("/Annot"));
        note.replaceKey("/Subtype", Object::newName("/Link"));
        note.replaceKey("/Border", Object::parse("[0 0 0]"));
        note.replaceKey("/Rect", Object::newArray(Object::Rectangle(at.left(), height - at.bottom(), at.right(),
                                                                    height - at.top())));
        note.replaceKey("/Dest", Destination(link.target));
        if (!page.getKey("/Annots").isArray()) page.replaceKey("/Annots", Object::newArray());
        page.getKey("/Annots").appendItem(pdf_.makeIndirectObject(note));
    }

    // Qt takes a link within the document for one to a file on the web.
    void DropFalseLinks() {
        for (QPDFPageObjectHelper &page : pages_) {
            Object notes = page.getObjectHandle().getKey("/Annots");
            for (int i = notes.isArray() ? notes.getArrayNItems() : 0; i-- > 0;) {
                Object action = notes.getArrayItem(i).getKey("/A");
                if (action.isDictionary() && action.getKey("/URI").getUTF8Value().starts_with('#')) notes.eraseItem(i);
            }
        }
    }

    void DropWhatDiffers() {
        Object about = pdf_.getTrailer().getKey("/Info");
        if (about.isDictionary())
            for (const char *key : {"/CreationDate", "/ModDate"}) about.removeKey(key);
        pdf_.getRoot().removeKey("/Metadata");
        pdf_.getRoot().replaceKey("/Lang", Object::newString("en"));
    }

private:
    Object Page(int index) { return pages_.at(static_cast<size_t>(index)).getObjectHandle(); }
    double PageHeight(int index) { return Page(index).getKey("/MediaBox").getArrayItem(3).getNumericValue(); }

    Object Destination(const PdfPlace &place) {
        Object target = Object::newArray();
        target.appendItem(Page(place.page));
        target.appendItem(Object::newName("/XYZ"));
        target.appendItem(Object::newNull());
        target.appendItem(Object::newReal(PageHeight(place.page) - place.y, 2));
        target.appendItem(Object::newNull());
        return target;
    }

    // Adds the marks of `level` that follow, with all that are below them, and moves `next` behind them.
    void AddItems(Object parent, const std::vector<PdfMark> &marks, size_t &next, int level) {
        Object last;
        int count = 0;
        while (next < marks.size() && marks[next].level >= level) {
            const PdfMark &mark = marks[next++];
            Object item = pdf_.makeIndirectObject(Object::newDictionary());
            item.replaceKey("/Title", Object::newUnicodeString(mark.text));
            item.replaceKey("/Parent", parent);
            item.replaceKey("/Dest", Destination(mark.place));
            if (next < marks.size() && marks[next].level > mark.level) AddItems(item, marks, next, marks[next].level);
            if (last.isInitialized()) {
                last.replaceKey("/Next", item);
                item.replaceKey("/Prev", last);
            } else {
                parent.replaceKey("/First", item);
            }
            last = item;
            ++count;
        }
        parent.replaceKey("/Last", last);
        // Below a chapter the items are closed at first, which a negative count says.
        parent.replaceKey("/Count", Object::newInteger(parent.hasKey("/Title") ? -count : count));
    }

    QPDF &pdf_;
    std::vector<QPDFPageObjectHelper> pages_;
};

}  // namespace

QByteArray AddPdfMarks(const QByteArray &bytes, const std::vector<PdfMark> &marks, const std::vector<PdfLink> &links) {
    QPDF pdf;
    pdf.processMemoryFile("document", bytes.constData(), static_cast<size_t>(bytes.size()));
    CPdfMarker marker(pdf);
    marker.AddOutline(marks);
    marker.DropFalseLinks();
    for (const PdfLink &link : links) marker.AddLink(link);
    marker.DropWhatDiffers();

    QPDFWriter writer(pdf);
    writer.setOutputMemory();
    writer.setDeterministicID(true);
    writer.write();
    const std::shared_ptr<Buffer> result = writer.getBufferSharedPointer();
    return QByteArray(reinterpret_cast<const char *>(result->getBuffer()), static_cast<qsizetype>(result->getSize()));
}
