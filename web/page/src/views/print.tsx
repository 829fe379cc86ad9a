// The plan sheet on paper: its pages as pictures, which only the printer sees.
import { failed } from "../core/commands";
import { picture, store } from "../state";
import { Text } from "../text_ids";
import { t } from "../texts";

export async function printSheet(): Promise<void> {
  await store.settled();
  const { plan } = store.state;
  store.tell(t(Text.Computing));
  const made = await store.commands.sheet(plan.name, plan.text, plan.model);
  if (failed(made)) {
    store.tell(made.reasons.join(" "), "problem");
    return;
  }
  const paper = document.createElement("div");
  paper.id = "paper";
  const pages = made.value.map(picture);
  for (const page of pages) {
    const image = document.createElement("img");
    image.src = page.url;
    image.alt = page.words;
    paper.append(image);
  }
  document.body.append(paper);
  const done = () => {
    document.body.classList.remove("prints-sheet");
    paper.remove();
    for (const page of pages) URL.revokeObjectURL(page.url);
  };
  const drawn = await Promise.allSettled([...paper.querySelectorAll("img")].map((image) => image.decode()));
  const blank = drawn.findIndex((each) => each.status === "rejected");
  if (blank >= 0) {
    done();
    store.tell(t(Text.PageNotDrawn, blank + 1), "problem");
    return;
  }
  store.tell("");
  document.body.classList.add("prints-sheet");
  window.addEventListener("afterprint", done, { once: true });
  window.print();
}
