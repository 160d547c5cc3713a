"""A drawing for the pages of docs/, as SVG that is readable in light and dark."""

from html import escape

STYLE = """
  svg { --ground: #ffffff; --ink: #1f2328; --soft: #59636e; --line: #818b98; --fill: #f6f8fa; --grey: #d1d9e0;
        --accent: #0969da; --hue1: #b6e3ff; --hue2: #ffd8b5; --hue3: #aceebb; --hue4: #ecd8ff; --hue5: #fae17d; }
  @media (prefers-color-scheme: dark) {
    svg { --ground: #0d1117; --ink: #f0f6fc; --soft: #9198a1; --line: #656c76; --fill: #151b23; --grey: #3d444d;
          --accent: #4493f8; --hue1: #0c4a8a; --hue2: #7a3d0b; --hue3: #11552a; --hue4: #51338a; --hue5: #6a5003; }
  }
  text { font: 13px "DejaVu Sans", "Segoe UI", Helvetica, Arial, sans-serif; fill: var(--ink); white-space: pre; }
  .small { font-size: 11px; } .soft { fill: var(--soft); } .bold { font-weight: bold; }
  .code { font-family: "DejaVu Sans Mono", Consolas, Menlo, monospace; font-size: 12px; }
  .tiny { font-size: 10px; }
  .ground { fill: var(--ground); stroke: var(--grey); } .box { fill: var(--fill); stroke: var(--line); }
  .plain { fill: var(--ground); stroke: var(--line); }
  .dashed { fill: none; stroke: var(--line); stroke-dasharray: 5 4; }
  .hue1 { fill: var(--hue1); } .hue2 { fill: var(--hue2); } .hue3 { fill: var(--hue3); } .hue4 { fill: var(--hue4); }
  .hue5 { fill: var(--hue5); } .grey { fill: var(--grey); } .accent { fill: var(--accent); }
  .cut, .leader { fill: none; stroke: var(--ground); stroke-width: 0.7; } .leader { stroke: var(--line); }
  .way { fill: none; stroke: var(--accent); stroke-width: 1.6; }
  .wire { fill: none; stroke: var(--line); stroke-width: 1.6; }
  .typed { fill: var(--accent); font-weight: bold; }
  .number { fill: var(--ground); font-weight: bold; }
"""


class Picture:
    """What is added last lies on top. Coordinates in pixels, from the top left."""

    def __init__(self, width, height, title):
        self.width, self.height, self.title = width, height, title
        self.parts = []
        self.box(0.5, 0.5, width - 1, height - 1, "ground", 6)

    def box(self, x, y, width, height, style="box", corner=4):
        self.parts.append(
            f'<rect x="{x:g}" y="{y:g}" width="{width:g}" height="{height:g}" rx="{corner}" class="{style}"/>'
        )

    def text(self, x, y, words, style="", anchor="start", length=None):
        """Its baseline is at y. With a length it is as wide on machines with other letters."""
        fixed = f' textLength="{length:g}" lengthAdjust="spacingAndGlyphs"' if length else ""
        self.parts.append(
            f'<text x="{x:g}" y="{y:g}" class="{style}" text-anchor="{anchor}"{fixed}>{escape(words)}</text>'
        )

    def lines(self, x, y, texts, style="", step=16, anchor="start"):
        for row, words in enumerate(texts):
            self.text(x, y + row * step, words, style, anchor)

    def named_box(self, x, y, width, height, name, words=(), style="box"):
        self.box(x, y, width, height, style)
        self.text(x + 10, y + 19, name, "bold")
        self.lines(x + 10, y + 37, words, "small")

    def path(self, points, style="way", start="", end="arrow"):
        drawn = " L ".join(f"{x:g} {y:g}" for x, y in points)
        marks = "".join(
            f' marker-{place}="url(#{mark}-{style})"' for place, mark in (("start", start), ("end", end)) if mark
        )
        self.parts.append(f'<path d="M {drawn}" class="{style}"{marks}/>')

    def number(self, x, y, number):
        self.parts.append(f'<circle cx="{x:g}" cy="{y:g}" r="9" class="accent"/>')
        self.text(x, y + 4, str(number), "small number", "middle")

    def svg(self):
        arrows = "".join(
            f'<marker id="arrow-{style}" viewBox="0 0 10 10" refX="9" refY="5" markerWidth="9" markerHeight="9" '
            f'markerUnits="userSpaceOnUse" orient="auto-start-reverse">'
            f'<path d="M0 0L10 5L0 10z" style="fill: var({color})"/></marker>'
            for style, color in (("way", "--accent"), ("wire", "--line"))
        )
        return "\n".join(
            [
                f'<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 {self.width} {self.height}" '
                f'width="{self.width}" height="{self.height}" role="img" aria-label="{escape(self.title)}">',
                f"<title>{escape(self.title)}</title>",
                f"<style>{STYLE}</style>",
                f"<defs>{arrows}</defs>",
                *self.parts,
                "</svg>",
                "",
            ]
        )
