// The search of the reference: a box in the head of each page, and lunr's ranking of the entries that make-index lists.
// Both are scripts and are loaded when the box is first used, because pages that are opened from disk cannot fetch.
(() => {
    "use strict";
    const kMostResults = 12, kBeforeMatch = 60, kExcerpt = 180;

    // ---- The index -----------------------------------------------------------------------------

    let index;  // a promise of it, from the first use on

    const load = name => new Promise((done, failed) =>
        document.head.append(Object.assign(document.createElement("script"), {src: name, onload: done, onerror: failed})));

    async function makeIndex() {
        await Promise.all([load("lunr.min.js"), load("search-index.js")]);
        lunr.tokenizer.separator = /[^\w\u00c0-\uffff]+/;
        return lunr(function() {
            this.pipeline.remove(lunr.stopWordFilter);  // "get" is a command
            this.ref("number");
            this.field("title", {boost: 10});
            this.field("page", {boost: 5});
            this.field("words");
            searchEntries.forEach((entry, number) => this.add({...entry, number}, {boost: entry.isMember ? 1 : 4}));
        });
    }

    // The entries that have all of the words, or else as many as possible, best first.
    async function find(text) {
        index = index || makeIndex();
        const lookUp = await index;
        const found = new Map();
        for (const word of lunr.tokenizer(text).map(String).filter(Boolean)) {
            const results = lookUp.query(query => {
                query.term(word, {boost: 10});  // in all its forms
                query.term(word, {usePipeline: false, wildcard: lunr.Query.wildcard.TRAILING});
            });
            for (const {ref, score, matchData} of results) {
                const one = found.get(ref) || {...searchEntries[ref], score: 0, matches: 0, terms: []};
                one.score += score;
                one.matches += 1;
                one.terms.push(...Object.keys(matchData.metadata));
                found.set(ref, one);
            }
        }
        const most = Math.max(0, ...[...found.values()].map(one => one.matches));
        return [...found.values()].filter(one => one.matches === most).sort((a, b) => b.score - a.score);
    }

    // ---- The box -------------------------------------------------------------------------------

    const box = document.createElement("form");
    box.id = "search";
    box.setAttribute("role", "search");
    box.innerHTML = `<input type="search" name="search" placeholder="Search" title="Press / to search" autocomplete="off"
        aria-label="Search the reference" aria-controls="search-results"><div id="search-results" hidden></div>`;
    document.getElementById("titlearea").append(box);
    const [input, results] = box.children;

    const make = (tag, name, ...content) => {
        const element = Object.assign(document.createElement(tag), {className: name});
        element.append(...content);
        return element;
    };

    // A part of the words around the first match, with all matches marked.
    function excerpt({words, terms}) {
        const match = new RegExp(`\\b(${terms.join("|")})\\w*`, "gi");  // a term has no sign that means more here
        const first = Math.max(0, words.search(match));
        const start = first < kBeforeMatch ? 0 : words.indexOf(" ", first - kBeforeMatch) + 1;
        const isLast = words.length <= start + kExcerpt;
        const part = words.slice(start, isLast ? words.length : words.lastIndexOf(" ", start + kExcerpt));
        const line = make("span", "excerpt", start ? "… " : "");
        let end = 0;
        for (const found of part.matchAll(match)) {
            line.append(part.slice(end, found.index), make("mark", "", found[0]));
            end = found.index + found[0].length;
        }
        line.append(part.slice(end), isLast ? "" : " …");
        return line;
    }

    function show(found) {
        results.replaceChildren(...found.slice(0, kMostResults).map(one => {
            const link = make("a", "", make("b", "", one.title), one.title === one.page ? "" : make("i", "", one.page),
                              excerpt(one));
            link.href = one.address;
            return link;
        }));
        const count = found.length > kMostResults ? `${kMostResults} of ${found.length} results`
                                                  : `${found.length} result${found.length === 1 ? "" : "s"}`;
        const status = make("p", "", count);
        status.setAttribute("role", "status");
        results.append(status);
        results.hidden = false;
    }

    const close = () => { results.hidden = true; };

    async function update() {
        const text = input.value.trim();
        if (!text) return close();
        const found = await find(text);
        if (text === input.value.trim()) show(found);  // nothing else was typed meanwhile
    }

    // ---- What the reader does ------------------------------------------------------------------

    input.addEventListener("input", update);
    input.addEventListener("click", update);
    input.addEventListener("focus", () => { index = index || makeIndex(); });
    box.addEventListener("submit", async event => {
        event.preventDefault();
        await update();
        results.querySelector("a")?.click();
    });
    results.addEventListener("click", event => { if (event.target.closest("a")) close(); });
    box.addEventListener("keydown", event => {
        const stops = [input, ...results.querySelectorAll("a")];
        const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
        if (step && !results.hidden) {
            stops[(stops.indexOf(document.activeElement) + step + stops.length) % stops.length].focus();
        } else if (event.key === "Escape") {
            input.focus();
            close();
        } else {
            return;
        }
        event.preventDefault();
    });
    document.addEventListener("click", event => { if (!box.contains(event.target)) close(); });
    document.addEventListener("keydown", event => {
        if (event.key !== "/" || /^(INPUT|TEXTAREA|SELECT)$/.test(document.activeElement.tagName)) return;
        event.preventDefault();
        input.focus();
    });

    // PAGE?search=WORDS opens with the results.
    input.value = new URLSearchParams(location.search).get("search") || "";
    update();
})();
