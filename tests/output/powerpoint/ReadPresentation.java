// Tells what Apache POI finds in a presentation, line by line. Of an Office Open XML file it reads the package:
// each part with all that it relates to, and the properties; of a binary one the slides with their shapes.
import java.io.File;
import java.io.FileInputStream;
import java.io.InputStream;
import org.apache.poi.hslf.usermodel.HSLFPictureData;
import org.apache.poi.hslf.usermodel.HSLFSlide;
import org.apache.poi.hslf.usermodel.HSLFSlideShow;
import org.apache.poi.openxml4j.opc.OPCPackage;
import org.apache.poi.openxml4j.opc.PackageAccess;
import org.apache.poi.openxml4j.opc.PackagePart;
import org.apache.poi.openxml4j.opc.PackageRelationship;

public class ReadPresentation {
    public static void main(String[] arguments) throws Exception {
        for (String name : arguments) {
            if (name.endsWith(".ppt")) readBinary(name);
            else readPackage(name);
        }
    }

    private static void readPackage(String name) throws Exception {
        try (OPCPackage whole = OPCPackage.open(new File(name), PackageAccess.READ)) {
            for (PackagePart part : whole.getParts()) {
                System.out.println("part " + part.getContentType());
                if (part.getContentType().endsWith("core-properties+xml")) continue; // read below
                try (InputStream content = part.getInputStream()) {
                    if (content.read() < 0) throw new IllegalStateException("empty: " + part.getPartName());
                }
                if (part.isRelationshipPart()) continue;
                for (PackageRelationship relation : part.getRelationships())
                    if (part.getRelatedPart(relation) == null)
                        throw new IllegalStateException("leads nowhere: " + relation.getTargetURI());
            }
            System.out.println("title " + whole.getPackageProperties().getTitleProperty().orElse(""));
        }
    }

    private static void readBinary(String name) throws Exception {
        try (HSLFSlideShow show = new HSLFSlideShow(new FileInputStream(name))) {
            for (HSLFSlide slide : show.getSlides())
                System.out.println("slide " + slide.getTitle() + ", " + slide.getShapes().size() + " shapes");
            for (HSLFPictureData picture : show.getPictureData())
                System.out.println("picture " + picture.getType());
        }
    }
}
