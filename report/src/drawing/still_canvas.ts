// A canvas whose picture does not depend on the time: drawn again only if its look changed.
import { colour } from './colours';
import { SharpCanvas } from './sharp_canvas';

export class StillCanvas extends SharpCanvas {
  private drawn = '';

  override redraw(): void {
    const printing = document.documentElement.dataset.print !== undefined;
    const look = [this.width, printing, colour('paper'), window.devicePixelRatio].join(' ');
    if (look === this.drawn && !this.stale) return;
    this.drawn = look;
    super.redraw();
  }
}
