#!/bin/sh
# LibreOffice's own print dialog with a real queue: it offers all papers, all trays and both edges, and what is
# chosen arrives in header and PostScript. So does the paper of a document that soffice --pt prints.
# SPDX-License-Identifier: Apache-2.0
# shellcheck source=tests/desktop/desktop.sh
. "${0%/*}/desktop.sh"

desktop_start
cat >"$W/report.fodt" <<'END'
<?xml version="1.0" encoding="UTF-8"?>
<office:document xmlns:office="urn:oasis:names:tc:opendocument:xmlns:office:1.0"
 xmlns:style="urn:oasis:names:tc:opendocument:xmlns:style:1.0"
 xmlns:fo="urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0"
 xmlns:text="urn:oasis:names:tc:opendocument:xmlns:text:1.0" office:version="1.3"
 office:mimetype="application/vnd.oasis.opendocument.text">
 <office:automatic-styles>
  <style:page-layout style:name="a5">
   <style:page-layout-properties fo:page-width="148mm" fo:page-height="210mm" fo:margin="10mm"/>
  </style:page-layout>
  <style:style style:name="next" style:family="paragraph">
   <style:paragraph-properties fo:break-before="page"/>
  </style:style>
 </office:automatic-styles>
 <office:master-styles>
  <style:master-page style:name="Standard" style:page-layout-name="a5"/>
 </office:master-styles>
 <office:body><office:text>
  <text:p>First page</text:p><text:p text:style-name="next">Second page</text:p>
 </office:text></office:body>
</office:document>
END
command -v soffice >/dev/null || fail "no LibreOffice: run scripts/install-deps desktop"
SAL_USE_VCLPLUGIN=gen soffice --norestore --nologo "-env:UserInstallation=file://$W/profile" \
  "--accept=pipe,name=kelm$$;urp" >"$W/soffice_log" 2>&1 &
started soffice $!
timeout 200 /usr/bin/python3 "$SOURCE/tests/desktop/libreoffice_dialog.py" kelm "$W/report.fodt" "kelm$$" \
  >"$W/print_log" 2>&1 || fail "LibreOffice: $(cat "$W/print_log")"
expect_job DUPLEX=ON BINDING=LONGEDGE COPIES=3 MEDIASOURCE=TRAY2
expect_stored QVDuplex=LongEdge QVInputSlot=FeedTray2 QVCollate=False
stop soffice

: >"$W/printer.out"
timeout 100 soffice --headless --norestore "-env:UserInstallation=file://$W/profile" \
  --pt kelm "$W/report.fodt" >"$W/print_log" 2>&1 || fail "LibreOffice: $(cat "$W/print_log")"
expect_job DUPLEX=OFF QTY=1 QVPAGESIZE=A5 QVPAGESIZEWIDTH=14800 QVPAGESIZEHEIGHT=21000
expect_stored QVDuplex=OFF QVInputSlot=Auto QVCollate=True
expect_line "$W/printed" '%%BeginFeature: *PageSize A5'
